// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/log.h"

namespace vbr {

// The reason of a session change as the log shows it.
std::u16string WTSSessionChangeReason_2_Str(std::uint32_t reason);

// 1 when the user is back at the session, -1 when away from it, 0 for any other change.
int SessionDirection(std::uint32_t reason);

// What a session change lets the tray window do.
class SessionActions {
  public:
    virtual ~SessionActions() = default;

    // The clipboard history. Start and stop tell whether they worked.
    virtual bool IsSpyRunning() const = 0;
    virtual bool StartSpy() = 0;
    virtual bool StopSpy() = 0;

    // The spy has been started or stopped.
    virtual void UpdateIcon() = 0;
    // Tells those who follow the user interface.
    virtual void AnnounceSessionEvent(std::uint32_t reason) = 0;
};

// Stops the clipboard history while the user is away from the session, and starts it again when it
// was this that stopped it. Belongs to the main thread.
class SessionWatch {
  public:
    SessionWatch(SessionActions& actions, Log& log) : actions_(actions), log_(log) {}

    void OnWmWTSSessionChange(std::uint32_t reason, std::uint32_t sessionId);

  private:
    SessionActions& actions_;
    Log& log_;
    bool spyOffBySession_ = false;
};

}  // namespace vbr

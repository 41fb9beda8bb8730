// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "platform/log.h"

namespace vbr {

// The reason of a session change as the log shows it.
std::u16string WTSSessionChangeReason_2_Str(std::uint32_t reason);

// 1 when the user is back at the session, -1 when away from it, 0 for any other change.
int SessionDirection(std::uint32_t reason);

// What a session change brings about. Start and stop tell whether they worked.
struct SessionActions {
    std::function<bool()> IsSpyRunning;
    std::function<bool()> StartSpy;
    std::function<bool()> StopSpy;
    std::function<void()> OnSpyChanged;  // it has been started or stopped
    std::function<void(std::uint32_t reason)> Announce;
};

// Stops the clipboard history while the user is away from the session, and starts it again when it
// was this that stopped it. Belongs to the main thread.
class SessionWatch {
  public:
    SessionWatch(SessionActions actions, Log& log) : actions_(std::move(actions)), log_(log) {}

    void OnWmWTSSessionChange(std::uint32_t reason, std::uint32_t sessionId);

  private:
    SessionActions actions_;
    Log& log_;
    bool spyOffBySession_ = false;
};

}  // namespace vbr

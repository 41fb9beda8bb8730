// SPDX-License-Identifier: MIT
#pragma once

#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// Windows that are told about changes of the session.
class SessionNotices {
  public:
    virtual ~SessionNotices() = default;

    // False for no window, for one that is registered, and when the system refuses.
    virtual bool Register(WindowHandle window, bool thisSessionOnly) = 0;
    // With `forget` a window that was unregistered counts as registered no more.
    virtual bool Unregister(WindowHandle window, bool forget) = 0;
    virtual bool IsRegistered(WindowHandle window) const = 0;
};

// Begins and ends the notices of this session to the tray window, with a line in the log.
void BeginSessionNotices(SessionNotices& notices, WindowHandle window, Log& log);
void EndSessionNotices(SessionNotices& notices, WindowHandle window, Log& log);

}  // namespace vbr

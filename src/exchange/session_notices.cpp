// SPDX-License-Identifier: MIT
#include "exchange/session_notices.h"

namespace vbr {

void BeginSessionNotices(SessionNotices& notices, WindowHandle window, Log& log) {
    if (notices.Register(window, true)) {
        log.Write(u"WTS_Notify successfully installed");
    } else {
        log.LogError(u"WTS_Notify NOT installed");
    }
}

void EndSessionNotices(SessionNotices& notices, WindowHandle window, Log& log) {
    if (!notices.IsRegistered(window)) {
        log.LogError(u"WTS_Notify HWND for uninstalling not found");
    } else if (notices.Unregister(window, true)) {
        log.Write(u"WTS_Notify successfully uninstalled");
    } else {
        log.LogError(u"WTS_Notify cannot uninstall");
    }
}

}  // namespace vbr

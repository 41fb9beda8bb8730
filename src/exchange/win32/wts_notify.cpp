// SPDX-License-Identifier: MIT
#include "exchange/win32/wts_notify.h"

#include <wtsapi32.h>

#include "platform/win32/system_library.h"

namespace vbr {
namespace {

HWND ToWindow(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

}  // namespace

CWtsNotify::~CWtsNotify() {
    for (const WindowHandle window : windows_) {
        Unregister(window, false);
    }
}

template <typename Function>
Function CWtsNotify::Find(const char* name) {
    if (!module_) {
        module_ = LoadSystemLibrary(L"Wtsapi32.dll");
    }
    return FunctionOf<Function>(module_.get(), name);
}

bool CWtsNotify::Register(WindowHandle window, bool thisSessionOnly) {
    if (!IsWindow(ToWindow(window)) || IsRegistered(window)) {
        return false;
    }
    const auto call =
        Find<decltype(&WTSRegisterSessionNotification)>("WTSRegisterSessionNotification");
    const DWORD flags = thisSessionOnly ? NOTIFY_FOR_THIS_SESSION : NOTIFY_FOR_ALL_SESSIONS;
    const bool registered = call && call(ToWindow(window), flags);
    if (registered) {
        windows_.insert(window);
    }
    return registered;
}

bool CWtsNotify::Unregister(WindowHandle window, bool forget) {
    const auto call =
        Find<decltype(&WTSUnRegisterSessionNotification)>("WTSUnRegisterSessionNotification");
    const bool unregistered = call && call(ToWindow(window));
    if (unregistered && forget) {
        windows_.erase(window);
    }
    return unregistered;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "exchange/install_params.h"

// The hook library's side of the program. Its four exports are plain C, looked up by name.
namespace {

bool g_installed = false;

bool HasText(const char16_t* name) {
    return name && *name;
}

bool IsOwnWindow(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

// The window in front and its thread's focus; an own window counts as none.
HWND ForeignForeground() {
    const HWND window = GetForegroundWindow();
    return window && !IsOwnWindow(window) ? window : nullptr;
}

}  // namespace

extern "C" {

// Takes the block for the time of the call. 0 with an error code in the block on failure.
int WP_Install(vbr::WPInstallParams* params) {
    if (!params) {
        return 0;
    }
    if (g_installed) {
        params->ErrorCode = vbr::kHookAlreadyInstalled;
        return 0;
    }
    if (!HasText(params->DataNeededName) || !HasText(params->DataCompletedName) ||
        !HasText(params->InterchangeAreaName)) {
        params->ErrorCode = vbr::kHookBadNames;
        return 0;
    }
    params->ErrorCode = vbr::kHookSuccess;
    g_installed = true;
    return 1;
}

// Not 0 when nothing of the library is in use any more.
int WP_Uninstall() {
    g_installed = false;
    return 1;
}

// The window with the keyboard focus in the application in front, or null.
HWND WP_GetTargetWindow() {
    const HWND front = ForeignForeground();
    if (!front) {
        return nullptr;
    }
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(front, nullptr);
    if (GetGUIThreadInfo(thread, &info) && info.hwndFocus && !IsOwnWindow(info.hwndFocus)) {
        return info.hwndFocus;
    }
    return front;
}

// The top window of the application in front, to which the foreground can be given back.
HWND WP_GetTargetWindowOther() {
    return ForeignForeground();
}

}  // extern "C"

// SPDX-License-Identifier: MIT
#include "platform/win32/win_target_windows.h"

#include "platform/win32/windows.h"

#include "platform/win32/handle.h"

namespace vbr {
namespace {

HWND ToWindow(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

DWORD ProcessOf(WindowHandle window) {
    DWORD process = 0;
    GetWindowThreadProcessId(ToWindow(window), &process);
    return process;
}

// A process that may not be asked has more rights than this one.
bool HasElevatedToken(DWORD process) {
    const UniqueHandle opened(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    HANDLE token = nullptr;
    if (!opened || !OpenProcessToken(opened.get(), TOKEN_QUERY, &token)) {
        return GetLastError() == ERROR_ACCESS_DENIED;
    }
    const UniqueHandle owned(token);
    TOKEN_ELEVATION elevation{};
    DWORD length = 0;
    return GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &length) &&
           elevation.TokenIsElevated != 0;
}

}  // namespace

bool WinTargetWindows::IsWindow(WindowHandle window) const {
    return ::IsWindow(ToWindow(window)) != 0;
}

bool WinTargetWindows::IsOwnProcess(WindowHandle window) const {
    return ProcessOf(window) == GetCurrentProcessId();
}

bool WinTargetWindows::RunsElevated(WindowHandle window) const {
    const DWORD process = ProcessOf(window);
    return process != 0 && HasElevatedToken(process) && !HasElevatedToken(GetCurrentProcessId());
}

void WinTargetWindows::Wake(WindowHandle window) {
    PostMessageW(ToWindow(window), WM_NULL, 0, 0);
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_target_windows.h"

#include "platform/win32/windows.h"

#include <cstddef>
#include <optional>

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

// The system's number for how much a process may do; nothing when it doesn't let itself be asked.
std::optional<DWORD> IntegrityOf(HANDLE process) {
    HANDLE token = nullptr;
    if (!process || !OpenProcessToken(process, TOKEN_QUERY, &token)) {
        return std::nullopt;
    }
    const UniqueHandle owned(token);
    alignas(TOKEN_MANDATORY_LABEL)
        std::byte label[sizeof(TOKEN_MANDATORY_LABEL) + SECURITY_MAX_SID_SIZE];
    DWORD length = 0;
    if (!GetTokenInformation(token, TokenIntegrityLevel, label, sizeof label, &length)) {
        return std::nullopt;
    }
    const PSID sid = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(label)->Label.Sid;
    return *GetSidSubAuthority(sid, static_cast<DWORD>(*GetSidSubAuthorityCount(sid)) - 1);
}

}  // namespace

bool WinTargetWindows::IsWindow(WindowHandle window) const {
    return ::IsWindow(ToWindow(window)) != 0;
}

bool WinTargetWindows::IsOwnProcess(WindowHandle window) const {
    return ProcessOf(window) == GetCurrentProcessId();
}

bool WinTargetWindows::IsInFront(WindowHandle window) const {
    const HWND front = GetForegroundWindow();
    const HWND target = ToWindow(window);
    return front && ::IsWindow(target) &&
           (front == GetAncestor(target, GA_ROOT) ||
            GetAncestor(front, GA_ROOTOWNER) == GetAncestor(target, GA_ROOTOWNER));
}

bool WinTargetWindows::RunsElevated(WindowHandle window) const {
    const DWORD process = ProcessOf(window);
    const UniqueHandle opened(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    if (process == 0 || !opened) {
        return process != 0 && GetLastError() == ERROR_ACCESS_DENIED;
    }
    const auto its = IntegrityOf(opened.get());
    if (!its) {
        return GetLastError() == ERROR_ACCESS_DENIED;
    }
    const auto own = IntegrityOf(GetCurrentProcess());
    return own && *its > *own;
}

void WinTargetWindows::Wake(WindowHandle window) {
    PostMessageW(ToWindow(window), WM_NULL, 0, 0);
}

}  // namespace vbr

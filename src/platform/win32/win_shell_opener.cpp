// SPDX-License-Identifier: MIT
#include "platform/win32/win_shell_opener.h"

#include "platform/win32/windows.h"

#include <shellapi.h>

#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

// The highest answer of the shell that is an error.
constexpr INT_PTR kLastShellError = 32;

const wchar_t* OrNull(const std::u16string& text) {
    return text.empty() ? nullptr : Wide(text);
}

std::optional<SystemError> Execute(WindowHandle owner, const ShellStart& start) {
    SetLastError(ERROR_SUCCESS);
    const auto answer = reinterpret_cast<INT_PTR>(ShellExecuteW(
        reinterpret_cast<HWND>(owner), start.Elevated ? L"runas" : L"open", Wide(start.Path),
        OrNull(start.Arguments), OrNull(start.Folder), static_cast<int>(start.Show)));
    const DWORD error = GetLastError();
    if (answer > kLastShellError) {
        return std::nullopt;
    }
    return SystemErrorOf(error != ERROR_SUCCESS ? error : static_cast<DWORD>(answer));
}

}  // namespace

std::optional<SystemError> WinShellOpener::Open(WindowHandle owner, std::u16string_view target,
                                                ShowState show) {
    return Execute(owner, {.Path = std::u16string(target), .Show = show});
}

std::optional<SystemError> WinShellOpener::Start(WindowHandle owner, const ShellStart& start) {
    if (start.Elevated) {
        // Else the system's question opens behind the window in front.
        const auto window = reinterpret_cast<HWND>(owner);
        SetForegroundWindow(window);
        SetActiveWindow(window);
        SetFocus(window);
    }
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_APPSTARTING));
    auto error = Execute(owner, start);
    SetCursor(before);
    return error;
}

}  // namespace vbr

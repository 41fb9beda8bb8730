// SPDX-License-Identifier: MIT
#include "platform/win32/win_program_starter.h"

#include "platform/win32/windows.h"

#include <shellapi.h>
#include <string>

#include "platform/win32/answering.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

constexpr std::intptr_t kLastShellError = 32;

DWORD AttributesOf(std::u16string_view path) {
    return GetFileAttributesW(Wide(std::u16string(path)));
}

}  // namespace

bool WinProgramStarter::IsFile(std::u16string_view path) const {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WinProgramStarter::IsFolder(std::u16string_view path) const {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<SystemError> WinProgramStarter::Start(std::u16string_view path,
                                                    std::u16string_view parameters) {
    const std::u16string file(path);
    const std::u16string rest(parameters);
    const DWORD before = GetLastError();
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_DOENVSUBST;
    info.lpVerb = L"open";
    info.lpFile = Wide(file);
    info.lpParameters = rest.empty() ? nullptr : Wide(rest);
    info.nShow = SW_SHOW;
    ShellExecuteExW(&info);
    const DWORD error = GetLastError();
    SetLastError(before);
    if (reinterpret_cast<std::intptr_t>(info.hInstApp) > kLastShellError) {
        return std::nullopt;
    }
    return SystemErrorOf(error);
}

void WinProgramStarter::TellFailure(WindowHandle owner, std::u16string_view text,
                                    std::u16string_view title) {
    const HWND window = reinterpret_cast<HWND>(owner);
    const DWORD before = GetLastError();
    MessageBeep(0xFFFFFFFF);
    // A box over a window that hangs would hang with it.
    MessageBoxW(Answers(window) ? window : nullptr, Wide(std::u16string(text)),
                Wide(std::u16string(title)), MB_ICONEXCLAMATION);
    SetLastError(before);
}

}  // namespace vbr

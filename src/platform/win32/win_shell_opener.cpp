// SPDX-License-Identifier: MIT
#include "platform/win32/win_shell_opener.h"

#include "platform/win32/windows.h"

#include <shellapi.h>
#include <string>

#include "platform/win32/wide.h"

namespace vbr {

std::intptr_t WinShellOpener::Open(WindowHandle owner, std::u16string_view target, ShowState show) {
    return reinterpret_cast<std::intptr_t>(ShellExecuteW(reinterpret_cast<HWND>(owner), L"open",
                                                         Wide(std::u16string(target)), nullptr,
                                                         nullptr, static_cast<int>(show)));
}

}  // namespace vbr

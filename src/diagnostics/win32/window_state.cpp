// SPDX-License-Identifier: MIT
#include "diagnostics/win32/window_state.h"

#include "platform/win32/win_desktop_windows.h"

namespace vbr {

WindowState StateOf(HWND window) {
    const auto handle = reinterpret_cast<WindowHandle>(window);
    return {handle, IsWindow(window) != 0, WinDesktopWindows().ClassName(handle)};
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/window_icons.h"

namespace vbr {

void SetWindowIcons(HWND window, int icon) {
    const HMODULE module = GetModuleHandleW(nullptr);
    const HANDLE small =
        LoadImageW(module, MAKEINTRESOURCEW(icon), IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                   GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    const HANDLE big = LoadIconW(module, MAKEINTRESOURCEW(icon));
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(big));
}

}  // namespace vbr

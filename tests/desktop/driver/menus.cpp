// SPDX-License-Identifier: MIT
#include "desktop/driver/menus.h"

#include "desktop/driver/keyboard.h"
#include "desktop/driver/waiting.h"

namespace vbr::desktop {

bool IsMenuOpen() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu);
}

bool WaitForMenu() {
    return WaitUntil(IsMenuOpen);
}

bool WaitForNoMenu() {
    return WaitUntil([] { return !IsMenuOpen(); });
}

void ChooseMenuItem(int position) {
    for (int i = 0; i <= position; ++i) {
        PressKeys({VK_DOWN});
    }
    PressKeys({VK_RETURN});
}

}  // namespace vbr::desktop

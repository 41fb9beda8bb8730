// SPDX-License-Identifier: MIT
#include "desktop/driver/notepad.h"

#include "desktop/driver/waiting.h"

namespace vbr::desktop {

Notepad Notepad::Running() {
    HWND window = nullptr;
    WaitUntil([&] {
        window = FindWindowW(kClass, nullptr);
        return window && IsWindowVisible(window);
    });
    return Notepad(window);
}

}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <vector>

namespace vbr::desktop {

// Presses the keys in order and lets them go in the opposite order, as a person does. Modifiers
// that are still held are let go first.
void PressKeys(const std::vector<WORD>& keys);

// The program's own default hot key.
inline void PressHotkey() {
    PressKeys({VK_CONTROL, VK_MENU, VK_RETURN});
}

}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <iterator>
#include <string_view>
#include <vector>

namespace vbr::desktop {

// Presses the keys in order and lets them go in the opposite order, as a person does. Modifiers
// that are still held are let go first.
void PressKeys(const std::vector<WORD>& keys);

// The same by fingers: each key a moment after the one before, held for that long.
void HoldKeys(const std::vector<WORD>& keys, DWORD milliseconds);

// Types the characters into the window in front.
void TypeText(std::u16string_view text);

// The program's own default hot key.
inline constexpr WORD kHotkey[] = {VK_CONTROL, VK_MENU, VK_RETURN};
inline void PressHotkey() {
    HoldKeys({std::begin(kHotkey), std::end(kHotkey)}, 60);
}

}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vbr {

// A hot key in words, "Ctrl+Alt+Enter".
std::u16string HotkeyText(std::uint16_t mods, std::u16string_view keyName);

// Whether the key can be a hot key without being missed in typing: one without Ctrl, Alt or Win can
// only be a function key.
bool IsUsableHotkey(std::uint16_t mods, std::uint16_t vk);

}  // namespace vbr

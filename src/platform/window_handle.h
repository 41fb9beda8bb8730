// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// A window of the desktop, as a number; 0 is no window.
using WindowHandle = std::uintptr_t;

// A keyboard layout handle as a number; its low word is the language.
using LayoutHandle = std::uint32_t;

inline constexpr std::uint32_t LanguageOf(LayoutHandle layout) {
    return layout & 0xFFFF;
}

}  // namespace vbr

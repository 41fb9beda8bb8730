// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// A window of the desktop, as a number; 0 is no window.
using WindowHandle = std::uintptr_t;

// Windows that a thread's user interface knows of; 0 for none.
struct GuiThreadWindows {
    WindowHandle Active = 0;
    WindowHandle Focus = 0;
    WindowHandle Capture = 0;
    WindowHandle MenuOwner = 0;
    WindowHandle Caret = 0;

    bool operator==(const GuiThreadWindows&) const = default;
};

// A keyboard layout handle as a number; its low word is the language.
using LayoutHandle = std::uint32_t;

inline constexpr std::uint32_t LanguageOf(LayoutHandle layout) {
    return layout & 0xFFFF;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/menu_item.h"

namespace vbr {

// Most UTF-16 units of an item's texts that a described menu holds.
inline constexpr std::size_t kAnswerTextMax = 120;
inline constexpr std::size_t kAnswerTipMax = 1024;

// A menu that is described to the hook library rather than shown. Bit 0 of a group's Flags marks
// it as the default.
struct WPAnswer {
    WPMenuGroup Items;
    std::int32_t MenuPerColumn = -1;  // items in a column of the menu; 0 says nothing about it
    bool Sound = false;
    bool ShowToolTips = true;
    bool ForegroundTopMostWnd = false;
};

}  // namespace vbr

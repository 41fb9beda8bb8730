// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vbr {

struct WPMenuItem;

// An ordered list of menu items, owned by value.
using WPMenuGroup = std::vector<WPMenuItem>;

// The id of the newest item of the clipboard history; the next older one has the next id.
inline constexpr std::uint32_t kFirstHistoryItem = 2000;

// What a menu shows of one entry. Phrase records extend it.
struct WPMenuItem {
    std::unique_ptr<WPMenuGroup> Children;  // not null makes the item a sub-menu
    std::u16string Text;                    // at most 120 UTF-16 units
    std::u16string ToolTipText;             // at most 1024 UTF-16 units, empty for no tip
    std::int32_t DataType = 0;
    std::int32_t Flags = 0;
    std::uint32_t CMDID = 0;  // 0 without Children makes the item a separator
    std::int32_t LCID = 0;
};

}  // namespace vbr

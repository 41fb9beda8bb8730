// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vbr {

// Bits of CMenuItemInfo::ItemFlags.
inline constexpr std::uint32_t kItemPopup = 16;
inline constexpr std::uint32_t kItemSeparator = 2048;

inline constexpr std::size_t kItemTextMax = 255;  // UTF-16 units

// What an item of the phrase menu is measured, drawn and explained from.
struct CMenuItemInfo {
    std::u16string Tip;
    std::u16string Label;         // at most kItemTextMax units, as RightText and PhraseData
    std::u16string ExpandedText;  // the phrase's text after macro expansion
    std::u16string RightText;     // stands at the right end of the item
    std::u16string PhraseData;    // the start of the phrase's text before it
    std::int32_t DataType = 0;
    std::int32_t Row = 0;  // the running number within its list
    std::uint32_t ItemFlags = 0;
    bool Mark = false;  // the last phrase chosen, or the group that holds it
    std::uint32_t CommandId = 0;
    std::int32_t CursorPos = -1;  // place of the cursor mark in the label, or -1
};

// An item of the phrase menu as plain data; a popup has children.
struct PhraseMenuItem {
    CMenuItemInfo Info;
    bool Grayed = false;
    std::vector<PhraseMenuItem> Children;

    bool IsSeparator() const { return (Info.ItemFlags & kItemSeparator) != 0; }
    bool IsPopup() const { return (Info.ItemFlags & kItemPopup) != 0; }
};

using PhraseMenu = std::vector<PhraseMenuItem>;

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/menu_item.h"

namespace vbr {

// Bits of CMenuItemInfo::ItemFlags.
inline constexpr std::uint32_t kItemPopup = 16;
inline constexpr std::uint32_t kItemSeparator = 2048;

inline constexpr std::size_t kItemTextMax = 255;  // UTF-16 units

inline constexpr std::int32_t kNotRecent = -1;

// What an item stands for. Numbers of different kinds may be the same.
enum class MenuSubjectKind { None, Phrase, HistoryItem, ExtraCommand };

struct MenuSubject {
    MenuSubjectKind Kind = MenuSubjectKind::None;
    std::uint32_t Number =
        0;  // the phrase's CMDID, the history item's own id, the command's number

    bool operator==(const MenuSubject&) const = default;
};

// What an item of the phrase menu is measured, drawn and explained from.
struct CMenuItemInfo {
    std::u16string Tip;
    std::u16string Label;         // one line, at most kItemTextMax units
    std::u16string ExpandedText;  // the phrase's text after macro expansion, or an uncut caption
    std::u16string RightText;     // at the right end of the item; the caption of a separator
    std::u16string PhraseData;    // the start of the phrase's text, at most kItemTextMax units
    bool History = false;         // a history item or a popup of them
    bool Bitmap = false;
    std::int32_t DataType = 0;
    std::int32_t Row = 0;  // the running number within its list
    std::uint32_t ItemFlags = 0;
    bool Mark = false;  // the last phrase chosen, or the group that holds it
    MenuSubject Subject;
    std::uint32_t CommandId = 0;            // the item's number in the menu
    std::int32_t CursorPos = -1;            // place of the cursor mark in the label, or -1
    std::int32_t RecentIndex = kNotRecent;  // place among the recent phrases

    bool IsSeparator() const { return (ItemFlags & kItemSeparator) != 0; }
    bool IsPopup() const { return (ItemFlags & kItemPopup) != 0; }

    // What stands before the label of a recent phrase or a history item, counted from 1; else 0.
    std::uint32_t Number() const;
};

// An item of the phrase menu as plain data; a popup has children.
struct PhraseMenuItem {
    CMenuItemInfo Info;
    bool Grayed = false;
    std::vector<PhraseMenuItem> Children;

    bool IsSeparator() const { return Info.IsSeparator(); }
    bool IsPopup() const { return Info.IsPopup(); }
};

using PhraseMenu = std::vector<PhraseMenuItem>;

// A text as a label can hold it: control characters become blanks, and its end is cut off.
std::u16string MenuLabel(std::u16string_view text);

// Adds a separator with that caption. False when the menu ends in one already: nothing is added.
bool AddSeparator(PhraseMenu& menu, std::u16string_view caption = {});

// An empty popup at the end of the menu, to be filled. The reference holds until the menu gets its
// next item.
PhraseMenuItem& AddPopup(PhraseMenu& menu, std::u16string_view label);

}  // namespace vbr

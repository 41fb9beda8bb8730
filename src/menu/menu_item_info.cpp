// SPDX-License-Identifier: MIT
#include "menu/menu_item_info.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {

std::uint32_t CMenuItemInfo::Number() const {
    if (IsPopup() || IsSeparator()) {
        return 0;
    }
    if (History) {
        return static_cast<std::uint32_t>(Row) + 1;
    }
    return RecentIndex == kNotRecent ? 0 : static_cast<std::uint32_t>(RecentIndex) + 1;
}

std::u16string MenuLabel(std::u16string_view text) {
    std::u16string label(CutUnits(text, kItemTextMax));
    std::replace_if(
        label.begin(), label.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return label;
}

bool AddSeparator(PhraseMenu& menu, std::u16string_view caption) {
    if (!menu.empty() && menu.back().IsSeparator()) {
        return false;
    }
    PhraseMenuItem& separator = menu.emplace_back();
    separator.Info.ItemFlags = kItemSeparator;
    separator.Info.RightText = MenuLabel(caption);
    return true;
}

PhraseMenuItem& AddPopup(PhraseMenu& menu, std::u16string_view label) {
    PhraseMenuItem& popup = menu.emplace_back();
    popup.Info.ItemFlags = kItemPopup;
    popup.Info.Label = MenuLabel(label);
    return popup;
}

}  // namespace vbr

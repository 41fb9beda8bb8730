// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "menu/menu_item_info.h"

namespace vbr {

// A colour as 0x00BBGGRR.
using MenuColor = std::uint32_t;

// The system's colours that a menu is painted with.
struct SystemMenuColors {
    MenuColor Menu = 0;
    MenuColor MenuText = 0;
    MenuColor Highlight = 0;
    MenuColor HighlightText = 0;
    MenuColor GrayText = 0;
    MenuColor InfoBack = 0;
    MenuColor InfoText = 0;
    bool HighContrast = false;
};

// The menu's own colours. They give way to the system's when the user wants high contrast.
struct MenuColors {
    SystemMenuColors System;
    MenuColor SideBar = 0;
    MenuColor SideBarText = 0;
    MenuColor ExtraCommand = 0;
    MenuColor Number = 0;  // of an item, and the text at its right end
    MenuColor RightTextSelected = 0;
    MenuColor Marked = 0;  // text and frame of a marked item
    MenuColor Caret = 0;
    MenuColor CaretSelected = 0;
};

MenuColors ChooseMenuColors(const SystemMenuColors& system);

// The colour of every other row: a little darker, and black a little lighter.
MenuColor StripeColor(MenuColor color);

// How the menu's font is varied for an item.
struct MenuFont {
    bool Italic = false;
    bool Underline = false;
    bool Bold = false;

    bool operator==(const MenuFont&) const = default;
};
inline constexpr std::size_t kMenuFontCount = 8;

std::size_t IndexOf(MenuFont font);
MenuFont FontOf(const CMenuItemInfo& info);

// Kinds of the icons of items.
enum class MenuIcon {
    None = -1,
    PlainText = 0,
    FormattedText = 1,
    Execute = 2,
    SearchOne = 3,
    SearchTwo = 4,
    Url = 5,
};

// The icon of a phrase or a history item; any other item has none.
MenuIcon IconOf(const CMenuItemInfo& info);

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/geometry.h"
#include "menu/menu_item_info.h"
#include "menu/menu_look.h"

namespace vbr {

// Widths of texts in the menu's fonts, in pixels.
class TextWidths {
  public:
    virtual ~TextWidths() = default;
    virtual int WidthOf(std::u16string_view text, MenuFont font) const = 0;
};

// What all items of a menu are measured by.
struct MenuMetrics {
    int MenuHeight = 0;  // of the system's menu bar
    int Dpi = kUsualDpi;
};

// The room that an item asks for. `inRoot` leaves room for the side bar.
Size MeasureMenuItem(const CMenuItemInfo& info, bool inRoot, const MenuMetrics& metrics,
                     const TextWidths& widths);

struct TextPicture {
    std::u16string Text;
    Rect Place;
    MenuColor Color = 0;
    std::optional<MenuColor> Behind;  // filled behind the text when it is set
    bool AtRight = false;
    bool Ellipsis = false;  // where the text doesn't fit

    bool operator==(const TextPicture&) const = default;
};

struct IconPicture {
    MenuIcon Kind = MenuIcon::None;
    bool Gray = false;
    Rect Behind;  // filled with the item's background
    Rect Place;

    bool operator==(const IconPicture&) const = default;
};

// An item as it is painted, in this order. Every text is vertically centred on one line.
struct ItemPicture {
    MenuColor Background = 0;
    Rect Body;
    std::optional<IconPicture> Icon;
    std::optional<std::array<Point, 2>> Line;  // of a separator, black
    MenuColor LineColor = 0;
    MenuFont Font;
    std::vector<TextPicture> Texts;
    std::optional<std::array<Point, 3>> Caret;
    MenuColor CaretColor = 0;
    std::optional<Rect> Frame;  // one pixel wide, within the rectangle
    MenuColor FrameColor = 0;
};

// Where an item stands and what it is at the moment.
struct ItemPlace {
    Rect Bounds;
    bool InRoot = false;  // beside the side bar
    bool Selected = false;
    bool Grayed = false;
};

ItemPicture PaintMenuItem(const CMenuItemInfo& info, const ItemPlace& place,
                          const MenuColors& colors, int dpi, const TextWidths& widths);

// The side bar: the strip at the left of the root menu, from its top to its bottom.
struct SideBarPicture {
    Rect Strip;  // the item's part of it
    Rect Icon;
    Point Text;  // from where the text runs upwards
};

// What of the side bar stands beside an item that begins `above` pixels below the menu's top.
SideBarPicture PaintSideBar(const Rect& item, int above, int menuHeight, int dpi);

}  // namespace vbr

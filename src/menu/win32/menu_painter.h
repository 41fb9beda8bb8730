// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>
#include <set>

#include "diagnostics/guarded_section.h"
#include "menu/item_picture.h"
#include "menu/win32/menu_fonts.h"
#include "menu/win32/menu_icons.h"
#include "menu/win32/shown_menu.h"

namespace vbr {

// Measures and paints the items of the phrase menu. Fonts and icons live as long as this; belongs
// to the main thread.
class MenuPainter {
  public:
    MenuPainter(const FontBytes& font, GuardedSections& guard) : fonts_(font), guard_(guard) {}

    // What comes next is about this menu, which opens on a screen of that many dots an inch.
    void Begin(ShownMenu& menu, int dpi);
    void End();

    // Both give 1; a fault is reported once for each item and gives 0.
    LRESULT OnMenuMEASUREITEM(MEASUREITEMSTRUCT& item);
    LRESULT OnMenuDRAWITEMSTRUCT(const DRAWITEMSTRUCT& item);

    HFONT PlainFont() { return fonts_.Get(MenuFont()); }
    MenuIcons& Icons() { return icons_; }
    void ClearFonts();

  private:
    LRESULT Measure(MEASUREITEMSTRUCT& item);
    LRESULT Draw(const DRAWITEMSTRUCT& item);
    void DrawSideBar(HDC dc, const Rect& bounds, int above);
    void DrawPicture(HDC dc, const ItemPicture& picture);
    void DrawIcon(HDC dc, const IconPicture& icon, MenuColor background);

    MenuFonts fonts_;
    MenuIcons icons_;
    GuardedSections& guard_;
    MenuMetrics metrics_;
    MenuColors colors_;
    ShownMenu* menu_ = nullptr;
    std::optional<GdiTextWidths> widths_;
    std::optional<int> rootHeight_;
    std::set<ULONG_PTR> faulted_;  // items that are not tried again
};

}  // namespace vbr

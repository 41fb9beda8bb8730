// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <array>
#include <optional>

#include "menu/item_picture.h"
#include "platform/win32/gdi_handle.h"
#include "settings/settings.h"

namespace vbr {

// The fonts of the phrase menu, made when they are first asked for and kept.
class MenuFonts {
  public:
    // The bytes are those of the settings, read each time that a font is made.
    explicit MenuFonts(const FontBytes& font) : font_(font) {}

    // The fonts from now on are those for that many dots an inch.
    void SetDpi(int dpi);
    HFONT Get(MenuFont font);
    // Its text runs upwards.
    HFONT SideBar();

    // Deletes the fonts of the items.
    void Clear();

  private:
    const FontBytes& font_;
    int dpi_ = kUsualDpi;
    std::array<UniqueGdi<HFONT>, kMenuFontCount> fonts_;
    UniqueGdi<HFONT> sideBar_;
};

// Widths in these fonts, by a device context of its own. Ends before the fonts are cleared.
class GdiTextWidths : public TextWidths {
  public:
    explicit GdiTextWidths(MenuFonts& fonts) : fonts_(fonts), dc_(CreateCompatibleDC(nullptr)) {}

    int WidthOf(std::u16string_view text, MenuFont font) const override;

  private:
    MenuFonts& fonts_;
    UniqueDc dc_;
    mutable std::optional<MenuFont> selected_;
};

}  // namespace vbr

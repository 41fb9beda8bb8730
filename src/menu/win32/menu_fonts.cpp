// SPDX-License-Identifier: MIT
#include "menu/win32/menu_fonts.h"

#include <bit>

#include "platform/win32/screen_dpi.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr int kSideBarFontHeight = -18;
constexpr LONG kUpwards = 900;

}  // namespace

void MenuFonts::SetDpi(int dpi) {
    if (dpi != dpi_) {
        dpi_ = dpi;
        Clear();
        sideBar_.reset();
    }
}

HFONT MenuFonts::Get(MenuFont font) {
    UniqueGdi<HFONT>& kept = fonts_[IndexOf(font)];
    if (!kept) {
        auto description = std::bit_cast<LOGFONTW>(font_);
        // The user chose it for the system's dots an inch.
        description.lfHeight = MulDiv(description.lfHeight, dpi_, SystemDpi());
        description.lfWidth = 0;
        description.lfItalic = font.Italic;
        description.lfUnderline = font.Underline;
        description.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
        kept.reset(CreateFontIndirectW(&description));
    }
    return kept.get();
}

HFONT MenuFonts::SideBar() {
    if (!sideBar_) {
        LOGFONTW description{};
        description.lfHeight = ScaleToDpi(kSideBarFontHeight, dpi_);
        description.lfEscapement = kUpwards;
        description.lfOrientation = kUpwards;
        description.lfWeight = FW_BOLD;
        description.lfCharSet = DEFAULT_CHARSET;
        description.lfQuality = CLEARTYPE_QUALITY;
        lstrcpynW(description.lfFaceName, L"Arial", LF_FACESIZE);
        sideBar_.reset(CreateFontIndirectW(&description));
    }
    return sideBar_.get();
}

void MenuFonts::Clear() {
    for (UniqueGdi<HFONT>& font : fonts_) {
        font.reset();
    }
}

int GdiTextWidths::WidthOf(std::u16string_view text, MenuFont font) const {
    if (text.empty()) {
        return 0;
    }
    if (selected_ != font) {
        SelectObject(dc_.get(), fonts_.Get(font));
        selected_ = font;
    }
    SIZE size{};
    GetTextExtentPoint32W(dc_.get(), Wide(text.data()), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace vbr

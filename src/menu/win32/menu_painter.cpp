// SPDX-License-Identifier: MIT
#include "menu/win32/menu_painter.h"

#include <algorithm>

#include "base/version.h"
#include "platform/win32/screen_dpi.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_geometry.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr int kCaretPen = 2;

void Fill(HDC dc, const Rect& area, MenuColor color) {
    const RECT rect = ToWin(area);
    SetDCBrushColor(dc, color);
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

SystemMenuColors ReadSystemColors() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    return {GetSysColor(COLOR_MENU),      GetSysColor(COLOR_MENUTEXT),
            GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT),
            GetSysColor(COLOR_GRAYTEXT),  GetSysColor(COLOR_INFOBK),
            GetSysColor(COLOR_INFOTEXT),  (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0};
}

void DrawOneText(HDC dc, const TextPicture& text) {
    SetTextColor(dc, text.Color);
    SetBkMode(dc, text.Behind ? OPAQUE : TRANSPARENT);
    if (text.Behind) {
        SetBkColor(dc, *text.Behind);
    }
    RECT rect = ToWin(text.Place);
    UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    format |= text.AtRight ? DT_RIGHT : 0U;
    format |= text.Ellipsis ? DT_END_ELLIPSIS : 0U;
    DrawTextW(dc, Wide(text.Text), static_cast<int>(text.Text.size()), &rect, format);
}

template <std::size_t Count>
void DrawLine(HDC dc, const std::array<Point, Count>& points) {
    MoveToEx(dc, points[0].X, points[0].Y, nullptr);
    for (std::size_t i = 1; i < Count; ++i) {
        LineTo(dc, points[i].X, points[i].Y);
    }
}

}  // namespace

void MenuPainter::Begin(ShownMenu& menu, int dpi) {
    metrics_ = {MenuHeightFor(dpi), dpi};
    widths_.reset();
    fonts_.SetDpi(dpi);
    colors_ = ChooseMenuColors(ReadSystemColors());
    menu_ = &menu;
    widths_.emplace(fonts_);
    rootHeight_.reset();
    faulted_.clear();
}

void MenuPainter::End() {
    menu_ = nullptr;
    widths_.reset();
}

void MenuPainter::ClearFonts() {
    const bool isOpen = widths_.has_value();
    widths_.reset();
    fonts_.Clear();
    if (isOpen) {
        widths_.emplace(fonts_);
    }
}

LRESULT MenuPainter::OnMenuMEASUREITEM(MEASUREITEMSTRUCT& item) {
    return guard_.Run(kFaultMeasureItem, LRESULT{0}, [&] { return Measure(item); });
}

LRESULT MenuPainter::Measure(MEASUREITEMSTRUCT& item) {
    MenuItemBlock* block = menu_ ? menu_->BlockAt(item.itemData) : nullptr;
    if (!block || !widths_) {
        guard_.Report().ReportError(u"M_INFO is NULL on MeasureImpl");
        return 1;
    }
    const Size size = MeasureMenuItem(block->Info, block->InRoot, metrics_, *widths_);
    block->Height = size.Height;
    item.itemWidth = static_cast<UINT>(size.Width);
    item.itemHeight = static_cast<UINT>(size.Height);
    return 1;
}

LRESULT MenuPainter::OnMenuDRAWITEMSTRUCT(const DRAWITEMSTRUCT& item) {
    if (faulted_.contains(item.itemData)) {
        return 0;
    }
    const LRESULT done = guard_.Run(kFaultDrawItem, LRESULT{0}, [&] { return Draw(item); });
    if (done == 0) {
        faulted_.insert(item.itemData);
    }
    return done;
}

LRESULT MenuPainter::Draw(const DRAWITEMSTRUCT& item) {
    const MenuItemBlock* known = menu_ ? menu_->BlockAt(item.itemData) : nullptr;
    if (!known) {
        guard_.Report().ReportError(kFaultDrawItem);
        return 0;
    }
    const MenuItemBlock& block = *known;
    if (block.InRoot && !rootHeight_) {
        rootHeight_ = menu_->LayOutRoot();
    }
    const Rect bounds = FromWin(item.rcItem);
    const SavedDc saved(item.hDC);
    IntersectClipRect(item.hDC, bounds.Left, bounds.Top, bounds.Right, bounds.Bottom);
    if (block.InRoot) {
        DrawSideBar(item.hDC, bounds, block.Above);
    }
    const ItemPlace place{bounds, block.InRoot, (item.itemState & ODS_SELECTED) != 0,
                          (item.itemState & ODS_GRAYED) != 0};
    DrawPicture(item.hDC, PaintMenuItem(block.Info, place, colors_, metrics_.Dpi, *widths_));
    return 1;
}

// Each item paints its part, so that the bar stays whole when the menu scrolls or is uncovered.
void MenuPainter::DrawSideBar(HDC dc, const Rect& bounds, int above) {
    const SideBarPicture bar = PaintSideBar(bounds, above, *rootHeight_, metrics_.Dpi);
    const SavedDc saved(dc);
    IntersectClipRect(dc, bar.Strip.Left, bar.Strip.Top, bar.Strip.Right, bar.Strip.Bottom);
    Fill(dc, bar.Strip, colors_.SideBar);
    DrawIconEx(dc, bar.Icon.Left, bar.Icon.Top, icons_.GetResource(kIconProgram, bar.Icon.Width()),
               bar.Icon.Width(), bar.Icon.Height(), 0, nullptr, DI_NORMAL);
    SelectObject(dc, fonts_.SideBar());
    SetTextColor(dc, colors_.SideBarText);
    SetBkMode(dc, TRANSPARENT);
    const std::u16string name = NameAndVersion();
    TextOutW(dc, bar.Text.X, bar.Text.Y, Wide(name), static_cast<int>(name.size()));
}

void MenuPainter::DrawPicture(HDC dc, const ItemPicture& picture) {
    Fill(dc, picture.Body, picture.Background);
    if (picture.Icon) {
        DrawIcon(dc, *picture.Icon, picture.Background);
    }
    SelectObject(dc, GetStockObject(DC_PEN));
    if (picture.Line) {
        SetDCPenColor(dc, picture.LineColor);
        DrawLine(dc, *picture.Line);
    }
    SelectObject(dc, fonts_.Get(picture.Font));
    for (const TextPicture& text : picture.Texts) {
        DrawOneText(dc, text);
    }
    if (picture.Caret) {
        const UniqueGdi<HPEN> pen(
            CreatePen(PS_SOLID, ScaleToDpi(kCaretPen, metrics_.Dpi), picture.CaretColor));
        const HGDIOBJ before = SelectObject(dc, pen.get());
        DrawLine(dc, *picture.Caret);
        SelectObject(dc, before);
    }
    if (picture.Frame) {
        const RECT frame = ToWin(*picture.Frame);
        SetDCBrushColor(dc, picture.FrameColor);
        FrameRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
}

void MenuPainter::DrawIcon(HDC dc, const IconPicture& icon, MenuColor background) {
    Fill(dc, icon.Behind, background);
    const HICON colored = icons_.Get(icon.Kind, icon.Place.Width());
    const UniqueIcon gray = icon.Gray ? MakeGrayIcon(colored) : nullptr;
    DrawIconEx(dc, icon.Place.Left, icon.Place.Top, gray ? gray.get() : colored, icon.Place.Width(),
               icon.Place.Height(), 0, nullptr, DI_NORMAL);
}

}  // namespace vbr

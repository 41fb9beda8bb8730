// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <set>

#include "fakes/fake_alert_box.h"
#include "fakes/memory_log.h"
#include "menu/win32/menu_painter.h"
#include "menu/win32/shown_menu.h"
#include "platform/win32/screen_dpi.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_menu_font.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

// A painter over the real faults and the real drawing, on a bitmap.
class PhraseMenuPainting : public testing::Test {
  protected:
    PhraseMenuPainting() : dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO format{};
        format.bmiHeader = {sizeof format.bmiHeader, 300, -100, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_.reset(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS,
                                       reinterpret_cast<void**>(&pixels_), nullptr, 0));
        SelectObject(dc_.get(), bitmap_.get());
    }

    static PhraseMenu Items() {
        PhraseMenu items(1);
        items[0].Info.Label = u"A phrase";
        return items;
    }
    LRESULT Draw(ULONG_PTR data, UINT state = 0) {
        DRAWITEMSTRUCT item{};
        item.hDC = dc_.get();
        item.rcItem = {0, 0, 300, 24};
        item.itemState = state;
        item.itemData = data;
        return painter_.OnMenuDRAWITEMSTRUCT(item);
    }
    static ULONG_PTR DataOf(HMENU menu, UINT position) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_DATA;
        GetMenuItemInfoW(menu, position, TRUE, &item);
        return item.dwItemData;
    }
    std::uint32_t PixelAt(int x, int y) const { return pixels_[y * 300 + x] & 0xFFFFFF; }

    MemoryLog log_;
    EmbeddedStrings strings_;
    FakeAlertBox box_;
    ErrorReport report_{log_, strings_, box_};
    WinFaultCatcher catcher_;
    GuardedSections guard_{catcher_, report_};
    FontBytes font_ = SystemMenuFont();
    MenuPainter painter_{font_, guard_};
    UniqueGdi<HBITMAP> bitmap_;
    std::uint32_t* pixels_ = nullptr;
    UniqueDc dc_;
};

TEST_F(PhraseMenuPainting, SelectionGroundTextAndSideBarReachTheScreen) {
    ShownMenu menu(Items());
    painter_.Begin(menu, 96);
    MEASUREITEMSTRUCT measured{};
    measured.itemData = DataOf(menu.Root(), 0);
    ASSERT_EQ(painter_.OnMenuMEASUREITEM(measured), 1);
    EXPECT_EQ(measured.itemHeight, static_cast<UINT>(MenuHeightFor(96) + 4));
    ASSERT_EQ(Draw(measured.itemData, ODS_SELECTED), 1);
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(PixelAt(290, 12), (highlight & 0xFF) << 16 | (highlight & 0xFF00) | highlight >> 16);
    EXPECT_EQ(PixelAt(20, 1), 0xE3E3E3U);
    painter_.End();
}

TEST_F(PhraseMenuPainting, DataThatIsNoItemsIsToldOnceAndTheOthersAreDrawn) {
    ShownMenu menu(Items());
    painter_.Begin(menu, 96);
    EXPECT_EQ(Draw(16), 0);
    EXPECT_EQ(Draw(16), 0);
    ASSERT_EQ(box_.Shown.size(), 1U);
    EXPECT_EQ(box_.Shown[0].Text, kFaultDrawItem);
    EXPECT_EQ(Draw(DataOf(menu.Root(), 0)), 1);
    EXPECT_EQ(Draw(32), 0);
    EXPECT_EQ(box_.Shown.size(), 2U);
    painter_.End();
}

TEST_F(PhraseMenuPainting, AGrayIconHasNoColourAndKeepsItsShape) {
    const UniqueIcon colored(CopyIcon(LoadIconW(nullptr, IDI_ERROR)));
    const UniqueIcon gray = MakeGrayIcon(colored.get());
    ASSERT_TRUE(gray);
    std::set<std::uint32_t> seen;
    std::fill_n(pixels_, 300 * 100, 0xFFFFFFU);
    DrawIconEx(dc_.get(), 0, 0, gray.get(), 32, 32, 0, nullptr, DI_NORMAL);
    for (int i = 0; i < 32 * 32; ++i) {
        seen.insert(PixelAt(i % 32, i / 32));
    }
    EXPECT_TRUE(seen.erase(0xFFFFFF));  // around it
    EXPECT_FALSE(seen.empty());
    for (const std::uint32_t pixel : seen) {
        EXPECT_EQ(pixel, (pixel & 0xFF) * 0x010101);
    }
}

}  // namespace
}  // namespace vbr

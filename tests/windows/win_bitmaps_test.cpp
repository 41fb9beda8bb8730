// SPDX-License-Identifier: MIT
#include "platform/win32/win_bitmaps.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "history/item_export.h"
#include "platform/win32/win_ansi_text.h"
#include "windows/pixels.h"

namespace vbr {
namespace {

std::shared_ptr<void> Own(HANDLE bitmap) {
    return {bitmap, [](void* owned) { DeleteObject(owned); }};
}

// Red, blue and white.
const std::vector<DWORD> kRow = {0xFF0000, 0x0000FF, 0xFFFFFF};

std::shared_ptr<void> Picture(WORD bitCount) {
    struct {
        BITMAPINFOHEADER Header = {};
        RGBQUAD Colors[256] = {};
    } info;
    info.Header = {sizeof(BITMAPINFOHEADER), 3, 1, 1, bitCount, BI_RGB, 0, 0, 0, 0, 0};
    info.Colors[1] = {0, 0, 0xFF, 0};
    info.Colors[2] = {0xFF, 0, 0, 0};
    info.Colors[3] = {0xFF, 0xFF, 0xFF, 0};
    void* bits = nullptr;
    auto picture = Own(CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info),
                                        DIB_RGB_COLORS, &bits, nullptr, 0));
    const BITMAPINFO layout = PixelLayout(3, 1);
    const HDC screen = GetDC(nullptr);
    SetDIBits(screen, static_cast<HBITMAP>(picture.get()), 0, 1, kRow.data(), &layout,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return picture;
}

TEST(WinBitmapsTest, AFileOfAnyDepthLooksTheSameToTheSystem) {
    WinBitmaps bitmaps;
    const TempFolder folder;
    const auto path = folder.Path() / u"Флаг.bmp";
    for (const WORD bitCount : {WORD{4}, WORD{8}, WORD{16}, WORD{24}, WORD{32}}) {
        const auto picture = bitmaps.FromObject(Picture(bitCount));
        ASSERT_TRUE(picture && WriteBitmapFile(path, *picture)) << bitCount;
        const auto loaded = Own(LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0,
                                           LR_LOADFROMFILE | LR_CREATEDIBSECTION));
        ASSERT_TRUE(loaded) << bitCount;
        EXPECT_EQ(PixelsOf(loaded.get()), kRow) << bitCount;
        auto header = *picture->Header();
        header.SizeImage -= 1;
        EXPECT_FALSE(picture->Read(header));
    }
}

TEST(WinBitmapsTest, WhatIsNoBitmapIsNoPicture) {
    WinBitmaps bitmaps;
    EXPECT_FALSE(bitmaps.FromObject(nullptr));
    EXPECT_FALSE(bitmaps.FromObject({GetStockObject(WHITE_BRUSH), [](void*) {}}));
}

TEST(WinAnsiTextTest, TextGoesThroughTheAnsiCodePageAndBack) {
    const WinAnsiText ansi;
    const std::u16string letters = ansi.FromAnsi("a\xE9\xDF");
    EXPECT_EQ(ansi.FromAnsi(ansi.ToAnsi(letters)), letters);
    EXPECT_EQ(ansi.ToAnsi(u"a\uFFFEb").size(), 3U);
}

}  // namespace
}  // namespace vbr

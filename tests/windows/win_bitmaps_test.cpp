// SPDX-License-Identifier: MIT
#include "platform/win32/win_bitmaps.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "platform/win32/win_ansi_text.h"

namespace vbr {
namespace {

std::shared_ptr<void> Own(HBITMAP bitmap) {
    return {bitmap, [](void* owned) { DeleteObject(owned); }};
}

// Two rows of three pixels in memory, bottom row first.
std::shared_ptr<void> Picture(WORD bitCount) {
    struct {
        BITMAPINFOHEADER Header = {};
        RGBQUAD Colors[256] = {};
    } info;
    info.Header = {sizeof(BITMAPINFOHEADER), 3, 2, 1, bitCount, BI_RGB, 0, 0, 0, 0, 0};
    info.Colors[0] = {0, 0, 0xFF, 0};
    info.Colors[1] = {0xFF, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                      &bits, nullptr, 0);
    static_cast<BYTE*>(bits)[0] = 0x40;
    return Own(bitmap);
}

TEST(WinBitmapsTest, APictureOfEveryDepthCanBeReadInItsOwnForm) {
    WinBitmaps bitmaps;
    const std::pair<WORD, std::uint32_t> cases[] = {{1, 8},   {4, 8},   {8, 8},
                                                    {16, 16}, {24, 24}, {32, 24}};
    for (const auto& [bitCount, bytes] : cases) {
        const auto object = Picture(bitCount);
        const auto picture = bitmaps.FromObject(object);
        ASSERT_TRUE(picture) << bitCount;
        EXPECT_EQ(bitmaps.ObjectOf(*picture), object);
        auto header = *picture->Header();
        EXPECT_EQ(header.Width, 3);
        EXPECT_EQ(header.Height, 2);
        EXPECT_EQ(header.BitCount, bitCount);
        EXPECT_EQ(header.SizeImage, bytes);
        header.ClrUsed = bitCount <= 8 ? 1U << bitCount : 0;
        const auto bits = picture->Read(header);
        ASSERT_TRUE(bits) << bitCount;
        EXPECT_EQ(bits->Bits[0], std::byte{0x40});
        ASSERT_EQ(bits->Colors.size(), header.ClrUsed * 4);
        if (bitCount <= 8) {
            EXPECT_EQ(bits->Colors[2], std::byte{0xFF});  // the red of the first colour
        }
        header.SizeImage -= 1;
        EXPECT_FALSE(picture->Read(header));
    }
}

TEST(WinBitmapsTest, WhatIsNoBitmapIsNoPicture) {
    WinBitmaps bitmaps;
    EXPECT_FALSE(bitmaps.FromObject(nullptr));
    EXPECT_FALSE(bitmaps.FromObject({GetStockObject(WHITE_BRUSH), [](void*) {}}));
    const auto deleted = Picture(24);
    DeleteObject(deleted.get());
    EXPECT_FALSE(bitmaps.FromObject(deleted));
}

TEST(WinAnsiTextTest, TextGoesThroughTheAnsiCodePageAndBack) {
    const WinAnsiText ansi;
    EXPECT_EQ(ansi.FromAnsi("plain"), u"plain");
    EXPECT_EQ(ansi.FromAnsi(""), u"");
    EXPECT_EQ(ansi.ToAnsi(u""), "");
    const std::u16string letters = ansi.FromAnsi("\xE9\xDF");
    EXPECT_EQ(ansi.FromAnsi(ansi.ToAnsi(letters)), letters);
    EXPECT_EQ(ansi.ToAnsi(u"a\uFFFEb").size(), 3U);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "history/item_clipboard.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/history_desk.h"
#include "history/item_export.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_rich_text_engine.h"

namespace vbr {
namespace {

std::shared_ptr<void> Own(HBITMAP bitmap) {
    return {bitmap, [](void* owned) { DeleteObject(owned); }};
}

// Three pixels in a row: red, blue, white.
std::shared_ptr<void> Flag(WORD bitCount) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 3, 1, 1, bitCount, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HDC device = CreateCompatibleDC(nullptr);
    HGDIOBJ before = SelectObject(device, bitmap);
    SetPixel(device, 0, 0, RGB(255, 0, 0));
    SetPixel(device, 1, 0, RGB(0, 0, 255));
    SetPixel(device, 2, 0, RGB(255, 255, 255));
    SelectObject(device, before);
    DeleteDC(device);
    return Own(bitmap);
}

std::vector<COLORREF> PixelsOf(const std::shared_ptr<void>& bitmap) {
    HDC device = CreateCompatibleDC(nullptr);
    HGDIOBJ before = SelectObject(device, bitmap.get());
    std::vector<COLORREF> pixels;
    for (int x = 0; x < 3; ++x) {
        pixels.push_back(GetPixel(device, x, 0));
    }
    SelectObject(device, before);
    DeleteDC(device);
    return pixels;
}

const std::vector<COLORREF> kFlag = {RGB(255, 0, 0), RGB(0, 0, 255), RGB(255, 255, 255)};

class WinItemClipboard : public testing::Test {
  protected:
    WinItemClipboard()
        : owner_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                 nullptr)) {}
    ~WinItemClipboard() override { DestroyWindow(owner_); }

    void AddPicture(WORD bitCount) {
        auto item = std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(0));
        item->SetPicture(pictures_.FromObject(Flag(bitCount)));
        queue_.Add(std::move(item), kNoItemLimit);
    }
    std::optional<ClipboardBlock> Read(std::uint32_t format) {
        const auto clipboard = access_.Open(1'000);
        return clipboard ? clipboard->Read(format) : std::nullopt;
    }

    HWND owner_;
    HistoryDesk desk_;
    CCHQueue& queue_ = desk_.Queue;
    WinAnsiText ansi_;
    WinBitmaps pictures_;
    WinLocale locale_;
    WinRichTextEngine engine_{desk_.Log};
    WinClipboardAccess access_{owner_};
    ItemTexts texts_{ansi_, engine_, desk_.Log};
    ItemClipboard clipboard_{{queue_, access_, pictures_, texts_, locale_, desk_.Log}};
};

TEST_F(WinItemClipboard, FormattedTextGoesThereAsItIsOrPlain) {
    queue_.Add(ByteItem(CHF_RTF, "{\\rtf1\\ansi a\\b b\\par\\u1078?}"), kNoItemLimit);
    ASSERT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Read(access_.RegisterFormat(u"Rich Text Format"))->Bytes, queue_.GetItem(0)->Data());
    EXPECT_EQ(WinClipboard().UnicodeText(), u"");
    ASSERT_TRUE(clipboard_.PutOnClipboardAsPlainText(0));
    EXPECT_EQ(WinClipboard().UnicodeText(), u"ab\r\nж");
    EXPECT_EQ(*reinterpret_cast<const LCID*>(Read(CF_LOCALE)->Bytes.data()), GetThreadLocale());
    EXPECT_FALSE(IsClipboardFormatAvailable(access_.RegisterFormat(u"Rich Text Format")));
}

TEST_F(WinItemClipboard, APictureGoesBesideTextAndStaysInTheHistory) {
    AddPicture(24);
    ASSERT_TRUE(clipboard_.SetClipboardText(u"text"));
    ASSERT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(WinClipboard().UnicodeText(), u"text");
    EXPECT_EQ(PixelsOf(Read(CF_BITMAP)->Object), kFlag);
    ASSERT_TRUE(WinClipboard().Empty());
    EXPECT_EQ(PixelsOf(pictures_.ObjectOf(*queue_.GetItem(0)->Picture())), kFlag);
    AddPicture(24);
    EXPECT_EQ(queue_.GetCount(), 1U);
}

TEST_F(WinItemClipboard, ABitmapFileLooksTheSameToTheSystem) {
    const auto path = desk_.Temp.Path() / u"Флаг.bmp";
    for (const WORD bitCount : {WORD{16}, WORD{24}, WORD{32}}) {
        const auto picture = pictures_.FromObject(Flag(bitCount));
        ASSERT_TRUE(WriteBitmapFile(path, *picture)) << bitCount;
        const auto loaded = Own(static_cast<HBITMAP>(LoadImageW(
            nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
        ASSERT_TRUE(loaded) << bitCount;
        EXPECT_EQ(PixelsOf(loaded), kFlag) << bitCount;
    }
}

}  // namespace
}  // namespace vbr

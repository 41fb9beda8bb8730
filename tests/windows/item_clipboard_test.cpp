// SPDX-License-Identifier: MIT
#include "history/item_clipboard.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/history_fixture.h"
#include "platform/clipboard_text.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_rich_text_engine.h"
#include "windows/message_window.h"

namespace vbr {
namespace {

std::u16string UnicodeText() {
    WinClipboardAccess clipboard(nullptr);
    return ReadUnicodeText(clipboard);
}

bool EmptyClipboardNow() {
    const auto session = WinClipboardAccess(nullptr).Open(0);
    return session && session->Empty();
}

class WinItemClipboard : public testing::Test {
  protected:
    void AddPicture(std::shared_ptr<void> bitmap) {
        auto item = std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(0));
        item->SetPicture(pictures_.FromObject(std::move(bitmap)));
        queue_.Add(std::move(item), kNoItemLimit);
    }
    std::optional<ClipboardBlock> Read(std::uint32_t format) {
        const auto clipboard = access_.Open(1'000);
        return clipboard ? clipboard->Read(format) : std::nullopt;
    }

    MessageWindow owner_;
    HistoryFixture fixture_;
    CCHQueue& queue_ = fixture_.Queue;
    WinAnsiText ansi_;
    WinBitmaps pictures_;
    WinLocale locale_;
    WinRichTextEngine engine_{fixture_.Log};
    WinClipboardAccess access_{owner_.Get()};
    ItemTexts texts_{ansi_, engine_, fixture_.Log};
    ItemClipboard clipboard_{{.Queue = queue_,
                              .Access = access_,
                              .Bitmaps = pictures_,
                              .Texts = texts_,
                              .Locale = locale_,
                              .Log = fixture_.Log}};
};

TEST_F(WinItemClipboard, FormattedTextGoesThereAsItIsOrPlain) {
    queue_.Add(ByteItem(CHF_RTF, "{\\rtf1\\ansi a\\b b\\par\\u1078?}"), kNoItemLimit);
    ASSERT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Read(access_.RegisterFormat(u"Rich Text Format"))->Bytes, queue_.GetItem(0)->Data());
    EXPECT_EQ(UnicodeText(), u"");
    ASSERT_TRUE(clipboard_.PutOnClipboardAsPlainText(0));
    EXPECT_EQ(UnicodeText(), u"ab\r\nж");
    EXPECT_EQ(*reinterpret_cast<const LCID*>(Read(CF_LOCALE)->Bytes.data()), GetThreadLocale());
    EXPECT_FALSE(IsClipboardFormatAvailable(access_.RegisterFormat(u"Rich Text Format")));
}

TEST_F(WinItemClipboard, APictureGoesBesideTextAndStaysInTheHistory) {
    constexpr BYTE kBits[] = {0x12, 0x34, 0x56, 0};
    AddPicture({CreateBitmap(1, 1, 1, 32, kBits), [](void* owned) { DeleteObject(owned); }});
    ASSERT_TRUE(clipboard_.SetClipboardText(u"text"));
    ASSERT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(UnicodeText(), u"text");
    const auto copied = Read(CF_BITMAP);
    ASSERT_TRUE(copied && EmptyClipboardNow());
    AddPicture(copied->Object);
    EXPECT_EQ(queue_.GetCount(), 1U);
}

}  // namespace
}  // namespace vbr

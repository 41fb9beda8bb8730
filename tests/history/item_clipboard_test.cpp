// SPDX-License-Identifier: MIT
#include "history/item_clipboard.h"

#include <gtest/gtest.h>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_clipboard_access.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"
#include "history/item_export.h"

namespace vbr {
namespace {

// No picture has an object.
class NoObjects : public Bitmaps {
  public:
    std::shared_ptr<const Bitmap> FromObject(std::shared_ptr<void>) override { return nullptr; }
    std::shared_ptr<void> ObjectOf(const Bitmap&) override { return nullptr; }
};

// A picture of any size that gives what it is asked for.
class SizedBitmap : public Bitmap {
  public:
    SizedBitmap(std::int32_t width, std::int32_t height, std::uint16_t bitCount)
        : header_{.Width = width, .Height = height, .BitCount = bitCount, .Compression = 3} {}
    std::optional<BitmapHeader> Header() const override { return header_; }
    std::optional<BitmapBits> Read(const BitmapHeader& header) const override {
        return BitmapBits{{}, std::vector<std::byte>(header.SizeImage)};
    }

  private:
    BitmapHeader header_;
};

std::string BytesOf(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class ItemClipboardTest : public testing::Test, protected HistoryFixture {
  protected:
    // All blocks, "FORMAT:bytes", a blank between.
    std::string Content() const {
        std::string content;
        for (const ClipboardBlock& block : access_.Blocks) {
            content += (content.empty() ? "" : " ") + std::to_string(block.Format) +
                       Utf16ToUtf8(block.Name) + ":" + BytesOf(block.Bytes);
        }
        return content;
    }

    const std::string locale_ = std::string(" 16:\x09\x04\0\0", 8);
    FakeClipboardAccess access_;
    NoObjects pictures_;
    FakeAnsiText ansi_;
    FakeRichTextEngine engine_;
    FakeLocale languages_;
    ItemTexts texts_{ansi_, engine_, Log};
    ItemClipboard clipboard_{{.Queue = Queue,
                              .Access = access_,
                              .Bitmaps = pictures_,
                              .Texts = texts_,
                              .Locale = languages_,
                              .Log = Log}};
};

TEST_F(ItemClipboardTest, AnItemReplacesTheContentInItsOwnFormat) {
    access_.RegisterFormat(u"Rich Text Format");
    access_.RegisterFormat(u"Kelp Notes Format");
    const std::pair<std::unique_ptr<CCHItem>, std::string> cases[] = {
        {ByteItem(CHF_ANSI_TEXT, "\xE9"), std::string("1:\xE9\0", 4)},
        {TextItem(u"Ab"), std::string("13:A\0b\0\0\0", 9)},
        {TextItem(u""), "13:"},
        {ByteItem(CHF_RTF, "{r}"), std::string("49152Rich Text Format:{r}\0", 26)},
        {ByteItem(CHF_KELPNOTES, "k"), std::string("49153Kelp Notes Format:k\0", 25)}};
    for (const auto& [item, content] : cases) {
        auto copy = item->Copy();
        copy->alternatives.push_back(ByteItem(CHF_HTML, "h"));
        Add(std::move(copy));
        access_.Copy({FakeClipboardAccess::Text(u"before")});
        EXPECT_TRUE(clipboard_.PutItemOnClipboard(Queue.GetItem(0)->id)) << content;
        EXPECT_EQ(Content(), content + locale_);
        EXPECT_FALSE(access_.IsOpen());
    }
}

TEST_F(ItemClipboardTest, WhatCannotBePutThereLeavesTheContentAndFailuresAreLogged) {
    Add(ByteItem(CHF_HTML, "h"));
    Add(PictureItem(3, 1));
    Add(TextItem(u"a"));
    access_.Copy({FakeClipboardAccess::Memory(kClipText, "t")});
    EXPECT_FALSE(clipboard_.PutOnClipboard(2));
    EXPECT_FALSE(clipboard_.PutOnClipboard(3));
    EXPECT_FALSE(clipboard_.PutOnClipboardAsPlainText(3));
    EXPECT_FALSE(clipboard_.PutItemOnClipboard(CCHItem(CHF_HTML, 0, TimeAt(0)).id));
    EXPECT_TRUE(Log.Lines.empty());
    EXPECT_FALSE(clipboard_.PutOnClipboard(1));
    access_.FailingOpens = 1;
    EXPECT_FALSE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Content(), "1:t");
    EXPECT_EQ(Log.Lines.size(), 2U);
    access_.Refused = {kClipUnicodeText};
    EXPECT_FALSE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(access_.Find(kClipLocale), nullptr);
    access_.Refused = {kClipLocale};
    EXPECT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Log.Lines.size(), 4U);
}

TEST(ItemExport, BytesOfTheUsersFileHaveNoTerminatorForTextAndAllBytesForTheRest) {
    const std::pair<std::unique_ptr<CCHItem>, std::string> cases[] = {
        {TextItem(u"A"), std::string("\xFF\xFE\x41\0", 4)},
        {ByteItem(CHF_ANSI_TEXT, "\xE9"), "\xE9"},
        {ByteItem(CHF_RTF, "{r}"), "{r}"},
        {ByteItem(CHF_KELPNOTES, "k"), std::string("k\0", 2)},
        {ByteItem(CHF_HTML, "h"), std::string("h\0", 2)}};
    for (const auto& [item, bytes] : cases) {
        const auto file = ExportItem(*item);
        EXPECT_EQ(BytesOf(file->Head) + BytesOf(file->Body), bytes);
    }
    EXPECT_FALSE(ExportItem(CCHItem(CHF_BITMAP, 0, TimeAt(0))));
}

TEST(ItemExport, ABitmapThatHasNoFormInAFileIsRefused) {
    const TempFolder folder;
    const SizedBitmap cases[] = {
        {0, 2, 24}, {3, 0, 24}, {-3, 2, 24}, {3, 2, 64}, {0x7FFFFFFF, 0x7FFFFFFF, 32}};
    for (const SizedBitmap& picture : cases) {
        EXPECT_FALSE(WriteBitmapFile(folder.Path() / "picture.bmp", picture));
    }
    EXPECT_FALSE(WriteBitmapFile(folder.Path(), SizedBitmap(3, 2, 24)));
    EXPECT_EQ(ExportBitmap(SizedBitmap(3, -2, 32))->Body.size(), 24U);  // rows from the top
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
}  // namespace vbr

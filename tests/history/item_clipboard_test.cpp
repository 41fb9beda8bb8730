// SPDX-License-Identifier: MIT
#include "history/item_clipboard.h"

#include <cstring>
#include <gtest/gtest.h>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_clipboard_access.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"
#include "history/item_export.h"

namespace vbr {
namespace {

// Every picture has the same object.
class OneObject : public Bitmaps {
  public:
    std::shared_ptr<void> Object = std::make_shared<int>(1);
    std::shared_ptr<const Bitmap> FromObject(std::shared_ptr<void>) override { return nullptr; }
    std::shared_ptr<void> ObjectOf(const Bitmap&) override { return Object; }
};

// A picture of two rows whose form can be told.
class TallBitmap : public Bitmap {
  public:
    TallBitmap(std::int32_t width, std::int32_t height, std::uint16_t bitCount)
        : header_{.Width = width, .Height = height, .BitCount = bitCount, .Compression = 3} {}
    std::optional<BitmapHeader> Header() const override { return header_; }
    std::optional<BitmapBits> Read(const BitmapHeader& header) const override {
        if (header.Compression != 0) {
            return std::nullopt;
        }
        return BitmapBits{std::vector<std::byte>(header.ClrUsed * 4, std::byte{0xC0}),
                          std::vector<std::byte>(header.SizeImage, std::byte{0xB1})};
    }

  private:
    BitmapHeader header_;
};

std::string BytesOf(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::uint32_t Number(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

class ItemClipboardTest : public testing::Test, protected HistoryFixture {
  protected:
    void AddPicture() {
        auto item = std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(0));
        item->SetPicture(std::make_shared<FakeBitmap>(3, std::byte{1}));
        Add(std::move(item));
    }
    // All blocks, "FORMAT:bytes", a blank between.
    std::string Content() const {
        std::string content;
        for (const ClipboardBlock& block : access_.Blocks) {
            content += (content.empty() ? "" : " ") + std::to_string(block.Format) +
                       Utf16ToUtf8(block.Name) + ":" +
                       (block.Object ? "object" : BytesOf(block.Bytes));
        }
        return content;
    }

    const std::string locale_ = std::string(" 16:\x09\x04\0\0", 8);
    FakeClipboardAccess access_;
    OneObject pictures_;
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

TEST_F(ItemClipboardTest, APictureGoesBesideTheContent) {
    AddPicture();
    access_.Copy({FakeClipboardAccess::Memory(kClipText, "t")});
    EXPECT_TRUE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Content(), "1:t 2:object");
    pictures_.Object.reset();
    EXPECT_FALSE(clipboard_.PutOnClipboard(0));
    EXPECT_EQ(Log.Lines.size(), 1U);
}

TEST_F(ItemClipboardTest, FailuresAreLogged) {
    Add(ByteItem(CHF_HTML, "h"));
    Add(TextItem(u"a"));
    AddPicture();
    EXPECT_FALSE(clipboard_.PutOnClipboard(2));
    EXPECT_FALSE(clipboard_.PutOnClipboard(3));
    EXPECT_FALSE(clipboard_.PutItemOnClipboard(CCHItem(CHF_HTML, 0, TimeAt(0)).id));
    EXPECT_FALSE(clipboard_.PutOnClipboardAsPlainText(3));
    EXPECT_TRUE(Log.Lines.empty());
    access_.Copy({FakeClipboardAccess::Memory(kClipText, "t")});
    access_.FailingOpens = 2;
    EXPECT_FALSE(clipboard_.PutOnClipboard(0));
    EXPECT_FALSE(clipboard_.PutOnClipboard(1));
    EXPECT_EQ(Content(), "1:t");
    EXPECT_EQ(Log.Lines.size(), 2U);
    access_.Refused = {kClipUnicodeText};
    EXPECT_FALSE(clipboard_.PutOnClipboard(1));
    EXPECT_EQ(access_.Find(kClipLocale), nullptr);
    access_.Refused = {kClipLocale};
    EXPECT_TRUE(clipboard_.PutOnClipboard(1));
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

TEST(ItemExport, ABitmapFileHasItsHeadsColoursAndRows) {
    const struct {
        TallBitmap Picture;
        std::uint32_t Offset;
        std::uint32_t Colors;
        std::uint32_t SizeImage;
    } cases[] = {{{3, 2, 1}, 62, 2, 8},           {{3, 2, 8}, 1078, 256, 8},
                 {{3, 2, 15}, 262198, 65536, 16}, {{3, 2, 16}, 262198, 65536, 16},
                 {{3, 2, 24}, 54, 0, 24},         {{3, -2, 32}, 54, 0, 24}};
    for (const auto& one : cases) {
        const auto file = ExportBitmap(one.Picture);
        ASSERT_TRUE(file && file->Head.size() == one.Offset);
        EXPECT_EQ(file->Body.size(), one.SizeImage);
        const std::string head = BytesOf(file->Head);
        EXPECT_EQ(Number(head, 2), one.Offset + one.SizeImage);
        EXPECT_EQ(Number(head, 10), one.Offset);
        EXPECT_EQ(Number(head, 22), 2U);  // rows
        EXPECT_EQ(Number(head, 34), one.SizeImage);
        EXPECT_EQ(Number(head, 46), one.Colors);
        EXPECT_EQ(head.back(), one.Colors > 0 ? '\xC0' : '\0');
    }
}

TEST(ItemExport, ABitmapThatHasNoFormInAFileIsRefused) {
    const TempFolder folder;
    const TallBitmap cases[] = {
        {0, 2, 24}, {3, 0, 24}, {-3, 2, 24}, {3, 2, 64}, {0x7FFFFFFF, 0x7FFFFFFF, 32}};
    for (const TallBitmap& picture : cases) {
        EXPECT_FALSE(WriteBitmapFile(folder.Path() / "picture.bmp", picture));
    }
    EXPECT_FALSE(WriteBitmapFile(folder.Path(), TallBitmap(3, 2, 24)));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
}  // namespace vbr

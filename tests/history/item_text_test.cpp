// SPDX-License-Identifier: MIT
#include "history/item_text.h"

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

const std::u16string kForty(40, u'x');
const std::u16string kFifty(50, u'x');

class ItemText : public testing::Test {
  protected:
    FakeAnsiText ansi_;
    FakeRichTextEngine engine_;
    MemoryLog log_;
    ItemTexts texts_{ansi_, engine_, log_};
};

TEST_F(ItemText, CaptionIsTheFirstLineWithAnEllipsisForWhatWasCut) {
    ExpectTexts(
        {{u"ab\r\ncd", u"ab…"},
         {u"\r\n\tab\ncd", u"ab…"},
         {u"a b\tc", u"a b…"},
         {u"ab\r\n", u"ab…"},
         {u"\r\n\t", u""},
         {kFifty, kFifty},
         {kFifty + u"y", kFifty + u"…"},
         {kFifty + u"\r\n", kFifty + u"…"},
         {kForty + u"123456789😀", kForty + u"123456789…"}},
        [this](std::u16string_view text) { return texts_.MenuCaptionText(*TextItem(text)); });
    EXPECT_EQ(texts_.ItemText(*TextItem(u"\tab\r\ncd"), 4, false), u"\tab\r…");
}

TEST_F(ItemText, EveryFormatHasAText) {
    // Whole and as plain text.
    const std::tuple<std::unique_ptr<CCHItem>, std::u16string_view, std::u16string_view> cases[] = {
        {TextItem(u"Привет\r\n"), u"Привет\r\n", u"Привет\r\n"},
        {ByteItem(CHF_ANSI_TEXT, "caf\xE9"), u"café", u"café"},
        {ByteItem(CHF_RTF, "{\\1r\ns}"), u"r\r\ns", u"r\r\ns"},
        {ByteItem(CHF_KELPNOTES, "{k}"), u"Kelp Notes Document Data", u""},
        {std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(0)), u"Bitmap", u""},
        {ByteItem(CHF_HTML, "Version:1.0"), u"O-o-ops! Naxer!", u""}};
    for (const auto& [item, full, plain] : cases) {
        EXPECT_EQ(texts_.FullText(*item), full);
        EXPECT_EQ(texts_.PlainText(*item), plain);
    }
    EXPECT_EQ(texts_.ItemText(*ByteItem(CHF_HTML, "x"), 3, true), u"O-o-ops! Naxer!");
    EXPECT_EQ(texts_.ItemText(*ByteItem(CHF_KELPNOTES, "x"), 4, true), u"Kelp…");
}

TEST_F(ItemText, APreviewOfALongTextIsItsTwoEnds) {
    const std::u16string line(3U << 20, u'x');
    const TextPreview one = texts_.Preview(*TextItem(u"first " + line + u" last"));
    EXPECT_EQ(one.Units, line.size() + 11);
    EXPECT_FALSE(one.Lines);  // that takes long
    EXPECT_TRUE(one.Start.starts_with(u"first x") && one.End.ends_with(u"x last"));
    EXPECT_LT(one.Start.size() + one.End.size(), 20'000U);
    std::u16string lines;
    for (int i = 0; i < 10'000; ++i) {
        lines += i % 2 == 0 ? u"ab\r\n" : u"ab\n";
    }
    const TextPreview many = texts_.Preview(*TextItem(lines));
    EXPECT_EQ(many.Lines, 10'001U);
    EXPECT_TRUE(many.End.ends_with(u"ab\n"));
    EXPECT_EQ(texts_.Preview(*TextItem(u"a\rb")).Start, u"a\rb");
    EXPECT_FALSE(texts_.Preview(*ByteItem(CHF_KELPNOTES, "k")).Units);
}

TEST_F(ItemText, OfALargeSourceTheBeginningIsShownAndTheWholeDelivered) {
    const std::string source = "{\\rtf1 first\\par second " + std::string(2 << 20, 'x') + "}";
    const auto item = ByteItem(CHF_RTF, source);
    engine_.LoadSource(u"{another}");
    EXPECT_EQ(texts_.MenuCaptionText(*item), u"first…");
    const TextPreview preview = texts_.Preview(*item);
    EXPECT_TRUE(preview.Start.starts_with(u"first\r\nsecond xx"));
    EXPECT_TRUE(!preview.Units && !preview.Lines && preview.End.empty());
    EXPECT_EQ(engine_.PlainText(), u"another");
    EXPECT_GT(texts_.FullText(*item).size(), 2U << 20);
}

TEST_F(ItemText, AnRtfIsReadOnceAndABrokenOneIsLoggedOnce) {
    const auto item = ByteItem(CHF_RTF, "{text}");
    const auto broken = ByteItem(CHF_RTF, "no source");
    EXPECT_EQ(texts_.FullText(*item), u"text");
    EXPECT_EQ(texts_.FullText(*broken), u"");
    engine_.LoadSource(u"{another}");
    EXPECT_EQ(texts_.MenuCaptionText(*item), u"text");
    EXPECT_EQ(texts_.MenuCaptionText(*broken), u"");
    EXPECT_EQ(engine_.PlainText(), u"another");
    EXPECT_EQ(log_.Lines.size(), 1U);
}

}  // namespace
}  // namespace vbr

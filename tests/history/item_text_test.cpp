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

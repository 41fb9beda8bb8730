// SPDX-License-Identifier: MIT
#include "history/rich_edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/memory_log.h"
#include "platform/rich_source.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_rich_text_engine.h"

namespace vbr {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::u16string_view kHead =
    u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\fmodern Courier New;}}"
    u"{\\colortbl;\\red255\\green0\\blue0;}";

class RichEdits : public testing::Test {
  protected:
    std::string Saved() const { return Utf16ToUtf8(engine_.SaveSource().value_or(u"nothing")); }
    bool Load(std::u16string_view body) { return engine_.LoadSource(Concat(kHead, body, u"}")); }

    MemoryLog log_;
    WinLocale locale_;
    WinRichTextEngine engine_{log_, std::chrono::hours(1)};
};

TEST_F(RichEdits, LettersTurnInTheirFontsAndLoseBoldAndColour) {
    const std::u16string source = Concat(
        kHead, u"\\f0\\fs20 One \\b b\\u1078?ld\\b0\\fs40\\cf1 red\\f1 c\\'e9\\cf0\\par\\tab ",
        u"\\ul x\\ulnone 1\\u-10179?\\u-8704?\\par}");
    ASSERT_TRUE(LoadRichInCase(engine_, source, LetterCase::Upper, locale_));
    EXPECT_EQ(engine_.PlainText(), u"ONE BЖLDREDCÉ\r\n\tX1😀");
    const std::string saved = Saved();
    EXPECT_THAT(saved, HasSubstr("\\fs40"));
    EXPECT_THAT(saved, HasSubstr("Courier New"));
    EXPECT_THAT(saved, Not(HasSubstr("\\b\\")));
    EXPECT_THAT(saved, Not(HasSubstr("\\ul")));
    EXPECT_EQ(engine_.ColorOf({0, 5}), (TextColor{false, 0}));
    EXPECT_EQ(engine_.SameFormatEnd({0, 15}), 8U);
    EXPECT_EQ(engine_.SameFormatEnd({8, 15}), 11U);

    ASSERT_TRUE(LoadRichInCase(engine_, source, LetterCase::Lower, locale_));
    EXPECT_EQ(engine_.PlainText(), u"one bжldredcé\r\n\tx1😀");
    ASSERT_TRUE(engine_.LoadSource(u"{\\rtf1 As It Is}"));
    EXPECT_EQ(engine_.PlainText(), u"As It Is");
}

TEST_F(RichEdits, EndsAreTrimmedAndFormatsStay) {
    ASSERT_TRUE(Load(u"  \\cf1\\b a\\b0 \\cf0\\tab  b \\par\\par\\par"));
    EXPECT_EQ(TrimRich(engine_), 4U);  // blanks go first, and one stands before the line ends
    EXPECT_EQ(engine_.PlainText(), u"a\t b ");
    EXPECT_THAT(Saved(), HasSubstr("\\b"));
    ASSERT_TRUE(Load(u"\\tab a\\tab"));
    EXPECT_EQ(TrimRich(engine_), 0U);
    ASSERT_TRUE(Load(u"\\par  \\par "));
    EXPECT_GT(TrimRich(engine_), 0U);
    EXPECT_EQ(engine_.Length(), 0U);
    ASSERT_TRUE(Load(u""));
    EXPECT_EQ(TrimRich(engine_) + JoinRich(engine_), 0U);
}

TEST_F(RichEdits, LinesAreJoinedAndFormatsStay) {
    ASSERT_TRUE(Load(u"a\\par\\cf1\\b bold\\b0\\par\\par c d\\cf0\\par"));
    EXPECT_EQ(JoinRich(engine_), 3U);
    EXPECT_EQ(engine_.PlainText(), u"a bold  c d");
    EXPECT_EQ(engine_.Find(u"\r", 0), std::nullopt);
    EXPECT_EQ(engine_.ColorOf({2, 6}), (TextColor{false, 0x0000FF}));
    EXPECT_THAT(Saved(), HasSubstr("\\b"));
}

TEST_F(RichEdits, ManyLinesAreJoinedAndTurned) {
    std::u16string body;
    std::u16string joined;
    for (int i = 0; i < 1'000; ++i) {
        body += u"a line of {\\b some} words\\par\n";
        joined += u"A LINE OF SOME WORDS ";
    }
    ASSERT_TRUE(LoadRichInCase(engine_, Concat(kHead, body, u"end}"), LetterCase::Upper, locale_));
    EXPECT_EQ(JoinRich(engine_), 1'000U);
    EXPECT_EQ(engine_.PlainText(), joined + u"END");
}

TEST_F(RichEdits, ALoadThatTakesTooLongIsGivenUpAndLogged) {
    WinRichTextEngine impatient(log_, std::chrono::milliseconds(-1));
    EXPECT_FALSE(impatient.LoadSource(u"{\\rtf1 text}"));
    EXPECT_EQ(impatient.Text(), u"");
    ASSERT_EQ(log_.Lines.size(), 1U);
    EXPECT_THAT(Utf16ToUtf8(log_.Lines[0]), HasSubstr("12 bytes"));
}

TEST_F(RichEdits, ATextThatIsTooLargeIsRefusedAndAPictureOfThatSizeIsNot) {
    const std::u16string large(kMaxRichText + 1, u'0');
    std::u16string text = large;
    for (std::size_t i = 0; i < text.size(); i += 9) {
        text[i] = u' ';
    }
    EXPECT_FALSE(Load(text));
    ASSERT_EQ(log_.Lines.size(), 1U);
    EXPECT_THAT(Utf16ToUtf8(log_.Lines[0]), HasSubstr("too large"));
    ASSERT_TRUE(Load(Concat(u"a{\\pict\\wmetafile8\\picw9\\pich9 ", large, u"}b")));
    EXPECT_EQ(engine_.PlainText(), u"ab");
}

}  // namespace
}  // namespace vbr

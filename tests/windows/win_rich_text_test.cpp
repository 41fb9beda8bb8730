// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/macro_fixture.h"
#include "history/rich_edits.h"
#include "macros/rich_macros.h"
#include "platform/rich_source.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_rich_text_engine.h"

namespace vbr {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr TextColor kAutomatic;
constexpr TextColor kRed{false, 0x0000FF};
constexpr TextColor kBlue{false, 0xFF0000};

std::u16string Nested(std::size_t depth) {
    return Concat(u"{\\rtf1 ", std::u16string(depth - 1, u'{'), u"x", std::u16string(depth, u'}'));
}

constexpr std::u16string_view kHead =
    u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\fmodern Courier New;}}"
    u"{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}";

class WinRichText : public testing::Test {
  protected:
    std::string Saved() const { return Utf16ToUtf8(engine_.SaveSource().value_or(u"nothing")); }
    bool Load(std::u16string_view body) { return engine_.LoadSource(Concat(kHead, body, u"}")); }

    MemoryLog log_;
    WinLocale locale_;
    WinRichTextEngine engine_{log_, std::chrono::hours(1)};
};

TEST_F(WinRichText, PlainTextHasTheCharactersOfEveryKindOfSource) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"{\\rtf1 a\\par b\\tab c\\par}", u"a\r\nb\tc"},
        {u"{\\rtf1\\ansi\\ansicpg1251 \\'cf\u00CF\\u1055?}", u"ППП"},
        {u"{\\rtf1\\ansi Да 😀{\\uc2\\u1055??x}}", u"Да 😀Пx"},
        {u"{\\urtf1 \u00CFД}", u"\u00CFД"},
        {u"{\\rtf1}", u""},
        {u"{\\rtf1 a}}b", u"a"}};
    for (const auto& [source, text] : cases) {
        EXPECT_EQ(RichToPlainText(source, engine_), text) << Utf16ToUtf8(source);
    }
}

TEST_F(WinRichText, ASavedSourceLoadsAgainWithItsTextAndFormat) {
    ASSERT_TRUE(Load(u"a\\b\\cf1 Д😀\\b0\\cf0\\par c"));
    const auto first = engine_.SaveSource();
    ASSERT_TRUE(first && engine_.LoadSource(*first));
    EXPECT_EQ(engine_.PlainText(), u"aД😀\r\nc");
    EXPECT_EQ(engine_.Length(), 6U);
    EXPECT_EQ(engine_.SaveSource(), first);
    EXPECT_EQ(engine_.ColorOf({1, 4}), kRed);
    EXPECT_EQ(engine_.ColorOf({5, 6}), kAutomatic);
    EXPECT_EQ(engine_.ColorOf({0, 2}), std::nullopt);
}

TEST_F(WinRichText, ASourceThatNamesNoFontIsNeitherBoldNorInTheSystemFont) {
    ASSERT_TRUE(engine_.LoadSource(u"{\\rtf1 plain}"));
    EXPECT_THAT(Saved(), Not(HasSubstr("\\b\\")));
    EXPECT_THAT(Saved(), Not(HasSubstr("System")));
}

TEST_F(WinRichText, FindsInExactCaseFromAPlaceAndAcrossFormats) {
    ASSERT_TRUE(engine_.LoadSource(u"{\\rtf1 %a%\\par %\\b A\\b0 % x %A%}"));
    EXPECT_EQ(engine_.Find(u"%A%", 0), 4U);
    EXPECT_EQ(engine_.Find(u"%A%", 5), 10U);
    EXPECT_EQ(engine_.Find(u"%A%", 11), std::nullopt);
    EXPECT_EQ(engine_.Find(u"%A%", 100), std::nullopt);
    EXPECT_EQ(engine_.Find(u"\r", 0), 3U);
}

TEST_F(WinRichText, AReplacedRangeKeepsItsFormatAndAColourCanBeSet) {
    ASSERT_TRUE(Load(u"a\\cf1\\b old\\b0\\cf2 z"));
    engine_.ReplaceRange({1, 4}, u"П\r\n😀");
    EXPECT_EQ(engine_.PlainText(), u"aП\r\n😀z");
    EXPECT_EQ(engine_.ColorOf({1, 5}), kRed);
    EXPECT_EQ(engine_.ColorOf({5, 6}), kBlue);
    EXPECT_THAT(Saved(), HasSubstr("\\b"));
    EXPECT_THAT(Saved(), HasSubstr("\\u1055?"));
    engine_.SetColor({1, 5}, kBlue);
    engine_.SetColor({5, 6}, kAutomatic);
    EXPECT_EQ(engine_.ColorOf({1, 5}), kBlue);
    EXPECT_EQ(engine_.ColorOf({5, 6}), kAutomatic);
    engine_.ReplaceRange({0, engine_.Length()}, {});
    EXPECT_EQ(engine_.PlainText(), u"");
}

TEST_F(WinRichText, BrokenSourcesDoNotLoadAndLeaveNothing) {
    const std::u16string cases[] = {u"",
                                    u"no source",
                                    u"{\\rtf1 cut off",
                                    u"{\\rtf",
                                    Nested(kMaxRichGroupDepth + 1),
                                    Nested(10'000),
                                    std::u16string(u"{\\rtf1 ") + std::u16string(10'000, u'{')};
    for (const std::u16string& source : cases) {
        ASSERT_TRUE(engine_.LoadSource(u"{\\rtf1 before}"));
        EXPECT_FALSE(engine_.LoadSource(source)) << Utf16ToUtf8(source.substr(0, 20));
        EXPECT_EQ(engine_.PlainText(), u"");
    }
    EXPECT_EQ(RichToPlainText(Nested(kMaxRichGroupDepth), engine_), u"x");
    EXPECT_TRUE(log_.Lines.empty());
}

TEST_F(WinRichText, ALargeSourceIsWhole) {
    std::u16string source = u"{\\rtf1 ";
    std::size_t lines = 0;
    for (; source.size() < 5'000'000; ++lines) {
        source += u"A line of a text with a few words in it, and no more than these.\\par\n";
    }
    ASSERT_TRUE(engine_.LoadSource(source + u"end}"));
    EXPECT_EQ(engine_.Length(), lines * 65 + 3);
    EXPECT_EQ(engine_.Find(u"end", 0), lines * 65);
    engine_.ReplaceRange({lines * 65, lines * 65 + 3}, u"%");
    EXPECT_EQ(engine_.PlainText().size(), lines * 66 + 1);
}

TEST_F(WinRichText, LettersTurnInTheirFontsAndLoseBoldAndColour) {
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

TEST_F(WinRichText, EndsAreTrimmedAndLinesJoinedInTheirFormats) {
    ASSERT_TRUE(Load(u"  \\cf1\\b a\\b0 \\cf0\\tab  b \\par\\par\\par"));
    EXPECT_EQ(TrimRich(engine_), 4U);  // blanks go first, and one stands before the line ends
    EXPECT_EQ(engine_.PlainText(), u"a\t b ");
    EXPECT_THAT(Saved(), HasSubstr("\\b"));
    ASSERT_TRUE(Load(u"\\par  \\par "));
    EXPECT_GT(TrimRich(engine_), 0U);
    EXPECT_EQ(engine_.Length(), 0U);
    ASSERT_TRUE(Load(u"a\\par\\cf1\\b bold\\b0\\par\\par c d\\cf0\\par"));
    EXPECT_EQ(JoinRich(engine_), 3U);
    EXPECT_EQ(engine_.PlainText(), u"a bold  c d");
    EXPECT_EQ(engine_.ColorOf({2, 6}), kRed);
    EXPECT_THAT(Saved(), HasSubstr("\\b"));
}

TEST_F(WinRichText, PromptsPartAFormattedSourceIntoSourcesWithTheirFormat) {
    const std::u16string source =
        Concat(kHead, u"\\f1\\b bold\\par %PROMPT_\\cf1 TE\r\nXT=\\{\\'e9\\u1046?\\b0\\}",
               u"% and {\\cf1 %CURSOR_POS%}red \\{x\\}\\par\\cf2 %Prompt_Text={z}%end\\par}");
    const MacroFixture fixture;
    const RichMacros rich(fixture.Engine, fixture.Layouts, locale_, engine_);
    const auto segments = rich.ExpandSegments(source, {});
    ASSERT_TRUE(segments && segments->size() == 5);
    EXPECT_EQ((*segments)[1].Text, u"éЖ");
    EXPECT_EQ((*segments)[3].Text, u"z");
    EXPECT_EQ((*segments)[2].CursorBack, 8U);
    const std::tuple<std::size_t, std::u16string_view, std::string_view> texts[] = {
        {0, u"bold", "\\b"}, {2, u" and red {x}", "\\red255"}, {4, u"end", "\\blue255"}};
    for (const auto& [index, text, format] : texts) {
        const std::u16string& piece = (*segments)[index].Text;
        EXPECT_EQ(RichToPlainText(piece, engine_), text);
        EXPECT_THAT(Utf16ToUtf8(piece), HasSubstr(format));
        EXPECT_TRUE(EndsInParagraph(piece)) << Utf16ToUtf8(piece);
    }
}

TEST_F(WinRichText, BytesOfASourceStayTheirLettersOnDelivery) {
    const std::u16string source = u"{\\rtf1\\ansi\\ansicpg1251 \u00CF\u00F0\\'e8}";
    EXPECT_EQ(RichToPlainText(source, engine_), u"При");
    const std::string delivered = ToAsciiRich(source);
    EXPECT_EQ(RichToPlainText(Utf8ToUtf16(delivered), engine_), u"При");
    EXPECT_EQ(RichToPlainText(source.substr(0, source.size() - 1), engine_), u"При");  // broken
    EXPECT_EQ(engine_.FromCodePage("\x83\x5C", 932), u"ソ");
}

TEST_F(WinRichText, ALoadThatTakesTooLongIsGivenUpAndLogged) {
    WinRichTextEngine impatient(log_, std::chrono::milliseconds(-1));
    EXPECT_FALSE(impatient.LoadSource(u"{\\rtf1 text}"));
    EXPECT_EQ(impatient.Text(), u"");
    ASSERT_EQ(log_.Lines.size(), 1U);
    EXPECT_THAT(Utf16ToUtf8(log_.Lines[0]), HasSubstr("12 bytes"));
}

TEST_F(WinRichText, ATextThatIsTooLargeIsRefusedAndAPictureOfThatSizeIsNot) {
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

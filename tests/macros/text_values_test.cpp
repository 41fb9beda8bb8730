// SPDX-License-Identifier: MIT
#include "fakes/text_cases.h"
#include "macros/number_words.h"
#include "macros/prompt_dialog.h"
#include "macros/prompt_split.h"
#include "macros/url_text.h"

namespace vbr {
namespace {

TEST(PromptSplit, PromptsAndTheTextAroundThemKeepTheirOrder) {
    constexpr SegmentKind kText = SegmentKind::Text;
    constexpr SegmentKind kPrompt = SegmentKind::Prompt;
    const std::pair<std::u16string_view, std::vector<TextSegment>> cases[] = {
        {u"", {{kText, u""}}},
        {u"%PROMPT_TEXT={}%", {{kPrompt, u""}}},
        {u"a%PROMPT_TEXT={x}%b%Prompt_Text={y}%",
         {{kText, u"a"}, {kPrompt, u"x"}, {kText, u"b"}, {kPrompt, u"y"}}},
        {u"%PROMPT_TEXT={a{b}c}%d}%", {{kPrompt, u"a{b}c"}, {kText, u"d}%"}}},
        {u"}%PROMPT_TEXT={x}%b%PROMPT_TEXT={y} %",
         {{kText, u"}"}, {kPrompt, u"x"}, {kText, u"b%PROMPT_TEXT={y} %"}}}};
    for (const auto& [text, segments] : cases) {
        EXPECT_EQ(SplitPromptMacros(text), segments) << Utf16ToUtf8(text);
    }
}

TEST(NumberWords, NumbersInATextAreWrittenAsRussianSpeaksThem) {
    ExpectTexts(
        {{u"a1b02", u"aодинbдва"},
         {u"0 10 11 12 14 19", u"ноль десять одиннадцать двенадцать четырнадцать девятнадцать"},
         {u"40 58 90 101 216", u"сорок пятьдесят восемь девяносто сто один двести шестнадцать"},
         {u"1000 2021 5000", u"одна тысяча две тысячи двадцать один пять тысяч"},
         {u"11000 21000", u"одиннадцать тысяч двадцать одна тысяча"},
         {u"1000000 2000003", u"один миллион два миллиона три"},
         {u"5001000 22000000000", u"пять миллионов одна тысяча двадцать два миллиарда"},
         {u"999000000000", u"девятьсот девяносто девять миллиардов"},
         {u"1000000000000 99999999999999999999", u"1000000000000 99999999999999999999"}},
        NumbersInTextToWords);
}

TEST(ExtractUrl, PartsTheUrlAtTheStartFromWhatFollows) {
    const std::pair<std::u16string_view, TextCase> cases[] = {
        {u" see http://a.org", {u"", u"see http://a.org"}},
        {u"\t\r\n HTTPS://a.org/x", {u"HTTPS://a.org/x", u""}},
        {u"ftp://a b", {u"ftp://a", u" b"}},
        {u"http://a\r\nb", {u"http://a", u"\r\nb"}},
        {u"file://a b", {u"", u"file://a b"}},
        {u"http://", {u"", u"http://"}}};
    for (const auto& [text, parts] : cases) {
        EXPECT_EQ(ExtractUrl(text, true), parts.first) << Utf16ToUtf8(text);
        EXPECT_EQ(ExtractUrl(text, false), parts.second) << Utf16ToUtf8(text);
    }
}

TEST(TrimProtocols, TakesEachProtocolFromTheStartInOneWalk) {
    ExpectTexts({{u"HTTP://http://ftp://a", u"a"},
                 {u"http://https://a", u"a"},
                 {u"https://http://a", u"http://a"},
                 {u"file://a http://b", u"a http://b"},
                 {u"a%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%b", u"ab"}},
                TrimProtocols);
}

TEST(Prompt, TitleTellsTheTargetInAHundredCharacters) {
    EXPECT_EQ(PromptTitle(u"V", u""), u"V");
    EXPECT_EQ(PromptTitle(u"V", u"Letter"), u"V - [Letter]");
    EXPECT_EQ(PromptTitle(u"V", std::u16string(101, u'x')),
              u"V - [" + std::u16string(100, u'x') + u"]");
    EXPECT_EQ(PromptTitle(u"V", std::u16string(99, u'x') + u"🙂"),
              u"V - [" + std::u16string(99, u'x') + u"]");
}

TEST(Prompt, AnswerIsWhatWasTypedOrTheDefault) {
    EXPECT_EQ(PromptAnswer(u"default", true, u"typed"), u"typed");
    EXPECT_EQ(PromptAnswer(u"default", true, u""), u"default");
    EXPECT_EQ(PromptAnswer(u"", true, u""), u"");
    EXPECT_EQ(PromptAnswer(u"two\r\nlines", false, u"two"), u"two\r\nlines");
}

TEST(Prompt, StandsUnderTheCaretAndWithinTheScreen) {
    const Rect work{-100, 0, 1000, 700};
    const Rect target{200, 100, 600, 300};
    const std::pair<std::optional<Rect>, Rect> cases[] = {
        {Rect{50, 80, 51, 96}, {50, 96, 350, 196}},
        {Rect{50, 680, 51, 696}, {50, 580, 350, 680}},   // above it at the bottom
        {Rect{990, 80, 991, 96}, {700, 96, 1000, 196}},  // at the right edge
        {Rect{-500, -40, -499, -24}, {-100, 0, 200, 100}},
        {std::nullopt, {250, 150, 550, 250}},
    };
    for (const auto& [caret, expected] : cases) {
        const Rect place = PlacePrompt({300, 100}, {caret, target, work});
        EXPECT_EQ(place, expected) << place.Left << ", " << place.Top;
    }
    EXPECT_EQ(PlacePrompt({2000, 900}, {std::nullopt, target, work}).Left, -100);
}

}  // namespace
}  // namespace vbr

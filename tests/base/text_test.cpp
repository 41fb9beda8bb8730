// SPDX-License-Identifier: MIT
#include "base/text.h"

#include "base/cursor_steps.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

constexpr char16_t kHigh = 0xD83D;
constexpr char16_t kLow = 0xDE42;

TEST(Utf, LoneSurrogatesBecomeReplacementCharacters) {
    const char16_t text[] = {u'a', kLow, kHigh, u'b', kHigh, kLow, kHigh};
    EXPECT_EQ(Utf16ToUtf8({text, 7}), "a\uFFFD\uFFFDb\U0001F642\uFFFD");
}

TEST(Utf, MalformedUtf8BecomesReplacementCharactersAndTheRestSurvives) {
    EXPECT_EQ(Utf8ToUtf16("a\xFF"
                          "b\xC3"),
              u"a\uFFFDb\uFFFD");
    EXPECT_EQ(Utf8ToUtf16("ё\U0001F642"), u"ё🙂");
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\xBD"));  // an encoded surrogate
    EXPECT_FALSE(IsValidUtf8("caf\xE9"));
    EXPECT_TRUE(IsValidUtf8("café"));
}

TEST(CutUnits, NeverHalvesAPair) {
    EXPECT_EQ(CutUnits(u"ab🙂c", 3), u"ab");
    EXPECT_EQ(CutUnits(u"ab🙂c", 4), u"ab🙂");
    EXPECT_EQ(CutUnits(u"ab", 5), u"ab");
}

TEST(CursorSteps, AreWhatAReaderTakesForOneCharacter) {
    const std::pair<std::u16string_view, std::size_t> cases[] = {
        {u"", 0},
        {u"ab\tc", 4},
        {u"a\r\n\r\nb\r", 5},
        {u"e\u0301й", 2},
        {u"й", 1},
        {u"กำ", 2},
        {u"नि", 1},
        {u"🙂🙂", 2},
        {u"👍🏽❤️1️⃣", 3},
        {u"👩‍👩‍👧‍👦👩‍❤️‍👨🏳️‍🌈", 3},
        {u"🇩🇪🇫🇷🇩a", 4},
        {u"🏴󠁧󠁢󠁥󠁮󠁧󠁿", 1},
        {u"ك\u200Dم", 2},  // a joiner between letters
        {std::u16string_view(&kLow, 1), 1},
    };
    for (const auto& [text, steps] : cases) {
        EXPECT_EQ(CursorSteps(text), steps) << Utf16ToUtf8(text);
    }
}

TEST(Case, LettersOfTheCoveredScriptsMatchInAnyCase) {
    EXPECT_TRUE(EqualsNoCase(u"straße ÿŽ Ёж ωΏ", u"STRAßE Ÿž ёЖ Ωώ"));
    EXPECT_FALSE(EqualsNoCase(u"a", u"ab"));
    EXPECT_TRUE(StartsWithNoCase(u"HTTP://x", u"http://"));
    EXPECT_FALSE(StartsWithNoCase(u"htt", u"http"));
    EXPECT_TRUE(EndsWithNoCase(u"A.VELLUMBRIDGE", u".vellumbridge"));
    EXPECT_EQ(ToUpper(u"÷×ĸ"), u"÷×ĸ");  // no letters with two cases, though amid some
}

TEST(FindNoCase, SearchesFromThePosition) {
    EXPECT_EQ(FindNoCase(u"abAB", u"AB"), 0U);
    EXPECT_EQ(FindNoCase(u"abAB", u"ab", 1), 2U);
    EXPECT_EQ(FindNoCase(u"abAB", u"ab", 3), std::u16string_view::npos);
    EXPECT_EQ(FindNoCase(u"ab", u"ab", 9), std::u16string_view::npos);
}

TEST(ParseDecimal, ReadsTheLeadingNumber) {
    const std::pair<std::u16string_view, std::int64_t> cases[] = {
        {u" \t-12x", -12}, {u"+7", 7},  {u"", 0},
        {u"x1", 0},        {u"- 1", 0}, {u"99999999999999999999", INT64_MAX}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDecimal(text), value) << Utf16ToUtf8(text);
    }
}

TEST(ReplaceAll, KeepsWhatStandsBetweenWhateverTheLengths) {
    for (const std::u16string with : {u"", u"1", u"12", u"ab", u"12345"}) {
        ExpectTexts({{u"ab", with},
                     {u"xabyab", u"x" + with + u"y" + with},
                     {u"ababz", with + with + u"z"},
                     {u"aab b", u"a" + with + u" b"}},
                    [&with](std::u16string_view before) {
                        std::u16string text(before);
                        ReplaceAll(text, u"ab", with);
                        return text;
                    });
    }
}

TEST(FindText, AgreesWithTheStringsOwnSearch) {
    // Units that share a byte with what is looked for: U+0425 and U+2525 with the percent sign.
    const std::u16string_view texts[] = {
        u"", u"%", u"a%b%%c", u"Х%Х", u"\x2525\x2500%\x2525%%", u"\x2561\x6125%a"};
    for (const std::u16string_view text : texts) {
        for (const std::u16string_view what : {u"", u"%", u"%%", u"Х", u"%a", u"\x2525", u"c"}) {
            for (std::size_t from = 0; from <= text.size() + 1; ++from) {
                EXPECT_EQ(FindText(text, what, from), text.find(what, from))
                    << Utf16ToUtf8(text) << ", " << Utf16ToUtf8(what) << " from " << from;
            }
        }
    }
}

}  // namespace
}  // namespace vbr

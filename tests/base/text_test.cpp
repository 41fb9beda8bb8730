// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <gtest/gtest.h>

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

TEST(ReplaceAll, DoesNotLookIntoWhatItInserted) {
    std::u16string text = u"aXaX";
    EXPECT_EQ(ReplaceAll(text, u"X", u"XX"), 2U);
    EXPECT_EQ(text, u"aXXaXX");
    EXPECT_EQ(ReplaceAll(text, u"", u"!"), 0U);
    EXPECT_EQ(ReplaceAll(text, u"XX", u""), 2U);
    EXPECT_EQ(text, u"aa");
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
    struct Case {
        std::u16string_view Text;
        std::int64_t Value;
    };
    for (const Case& c : std::initializer_list<Case>{{u" \t-12x", -12},
                                                     {u"+7", 7},
                                                     {u"", 0},
                                                     {u"x1", 0},
                                                     {u"- 1", 0},
                                                     {u"99999999999999999999", INT64_MAX}}) {
        EXPECT_EQ(ParseDecimal(c.Text), c.Value) << Utf16ToUtf8(c.Text);
    }
}

}  // namespace
}  // namespace vbr

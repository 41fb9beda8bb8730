// SPDX-License-Identifier: MIT
#include "macros/text_shortening.h"

#include <gtest/gtest.h>
#include <random>
#include <span>

#include "base/text.h"

namespace vbr {
namespace {

using Case = std::tuple<std::u16string_view, int, std::u16string_view>;

template <typename Shorten>
void ExpectEach(std::span<const Case> cases, Shorten&& shorten) {
    for (const auto& [text, limit, expected] : cases) {
        EXPECT_EQ(shorten(text, limit), expected) << Utf16ToUtf8(text) << " to " << limit;
    }
}

std::u16string HideLineEnds(std::u16string_view text, int limit) {
    return ShortenMiddle(text, static_cast<std::size_t>(limit));
}

std::u16string ShowLineEnds(std::u16string_view text, int limit) {
    return ShortenMiddle(text, static_cast<std::size_t>(limit), LineEnds::Shown);
}

TEST(ShortenTitle, GivesOneLineOfAtMostTheLimit) {
    const Case cases[] = {
        {u" \b\r\n title \t\v", 5, u"title"},
        {u"123456", 5, u"12345…"},
        {u"123456", kNoLimit, u"123456"},
        {u"1234🙂", 5, u"1234…"},
        // Cut at a line end or tab above position 1.
        {u"abc\r\nd", 9, u"abc"},
        {u"ab\tcd", 9, u"ab"},
        {u"ab\bcd", 9, u"ab"},
        {u"a\tbc", 9, u"a bc"},
        {u"a\nbc\rd", 9, u"a bc"},
    };
    ExpectEach(cases, ShortenTitle);
}

TEST(ShortenMiddle, ATextThatFitsIsOnlyPutOnOneLine) {
    const Case cases[] = {{u"plain", 5, u"plain"},
                          {u"a\r\nb\nc\rd", 40, u"a b c d"},
                          {u"a    b", 40, u"a b"},
                          {u"a         b", 40, u"a  b"},  // threes first, then pairs
                          {u"¶ \ta\tb¶\r\n", 40, u"a\tb"},
                          {u"long, but   \r\n   not any more", 26, u"long, but  not any more"}};
    ExpectEach(cases, HideLineEnds);
}

TEST(ShortenMiddle, LineEndsAndTabsCanBeShown) {
    const Case cases[] = {{u"\ta\r\nb\n\rc\t\td\r\n", 40, u"a¶b¶¶c d"},
                          {u"ab\r\ncdefghi\r\njk", 8, u"ab¶c…i¶jk"},
                          {u"abcd\t\t\t\tefghij\tk", 8, u"abcd…k"}};
    ExpectEach(cases, ShowLineEnds);
}

TEST(ShortenMiddle, ALongTextKeepsWholeWordsOfItsStartAndItsEnd) {
    const Case cases[] = {
        {u"0123456789ABCDEF", 8, u"0123…CDEF"},
        {u"one two three four", 10, u"one…four"},
        {u"a,bcdefghijk", 8, u"a…hijk"},
        {u",abcdefghijk", 8, u",abc…hijk"},  // a break at the very start cuts nothing
        {u"abcd efghijk", 8, u"abcd…hijk"},  // the break stands behind the head
        {u"abcdefgh\tijk", 8, u"abcd…ijk"},
        {u"abcdefg,hijk", 8, u"abcd…hijk"},     // a comma is no break for the tail
        {u"abcdef g hijk", 10, u"abcde…hijk"},  // the nearest blank counts
        {u"abc🙂defgh🙂ijk", 8, u"abc…ijk"},
        {u"ab", 1, u"…"}};
    ExpectEach(cases, HideLineEnds);
}

TEST(ShortenMiddle, APlaceIsFoundAgainBesideTheLetterThatItStoodBeside) {
    // Every letter differs from the others, so that it tells where it went.
    const std::u16string text = u" ¶ab\r\nc     d\t\te      fghij  k\r\nl m\r\n";
    for (const LineEnds lineEnds : {LineEnds::Hidden, LineEnds::Shown}) {
        for (std::size_t limit = 1; limit < text.size(); ++limit) {
            const std::u16string line = ShortenMiddle(text, limit, lineEnds);
            for (char16_t letter = u'a'; letter <= u'm'; ++letter) {
                const std::size_t shown = line.find(letter);
                std::size_t place = text.find(letter);
                EXPECT_EQ(ShortenMiddle(text, limit, lineEnds, &place), line);
                EXPECT_EQ(place, shown == line.npos ? line.find(u'…') : shown)
                    << Utf16ToUtf8(line) << static_cast<char>(letter);
            }
        }
    }
}

TEST(ShortenUrlOrText, AnAddressKeepsItsHostAndItsEnd) {
    const Case cases[] = {
        {u" http://a.org/\r\n", 40, u"http://a.org/"},
        {u"a  b", 4, u"a  b"},  // what fits is only trimmed
        {u"HTTP://a.org/some/long/way/page", 20, u"HTTP://a.org/ … page"},
        {u"ftp://a.org/dir?query&last_argument_12", 20, u"ftp://a.org/ … ument_12"},
        // Without a slash behind the host the head takes what the tail leaves.
        {u"http://0123456789abcdefghij", 16, u"http://0 … cdefghij"},
        {u"http://a_long_host_name/way/page_name", 16, u"http://a … age_name"},
        {u"file://a.org/some/long/way/page", 20, u"file:/…g/way/page"},
    };
    ExpectEach(cases, ShortenUrlOrText);
}

TEST(Shortening, NeverHalvesASurrogatePairNorGrowsMuch) {
    std::mt19937 random(20250305);
    constexpr std::u16string_view kPieces[] = {u"🙂", u"a", u" ", u"/", u"\r\n", u"¶", u"&"};
    for (int round = 0; round < 2000; ++round) {
        std::u16string text = round % 2 == 0 ? u"" : u"http://";
        for (auto i = random() % 40; i > 0; --i) {
            text += kPieces[random() % std::size(kPieces)];
        }
        const int limit = static_cast<int>(random() % 30);
        const std::u16string results[] = {ShortenTitle(text, limit),
                                          ShortenMiddle(text, static_cast<std::size_t>(limit)),
                                          ShortenUrlOrText(text, static_cast<std::size_t>(limit))};
        for (const std::u16string& result : results) {
            EXPECT_EQ(Utf8ToUtf16(Utf16ToUtf8(result)), result) << Utf16ToUtf8(text);
            EXPECT_LE(result.size(), static_cast<std::size_t>(limit) + 3) << Utf16ToUtf8(text);
        }
    }
}

}  // namespace
}  // namespace vbr

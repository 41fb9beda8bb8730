// SPDX-License-Identifier: MIT
#include "platform/rich_source.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace vbr {
namespace {

TEST(ToRichBytesTest, UnitsBeyondEightBitsBecomeEscapes) {
    const std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"{\\rtf1 a\u00CFb}", "{\\rtf1 a\xCF\x62}"},
        {u"{\\rtf1 Да 😀}", "{\\rtf1 {\\uc1\\u1044?\\u1072?} {\\uc1\\u-10179?\\u-8704?}}"},
        // The backslash of a control would swallow the brace of the escape's group.
        {u"{\\rtf1\\Дa\\\\Д", "{\\rtf1{\\uc1\\u1044?}a\\\\{\\uc1\\u1044?}"},
        {u"{\\URTF1 \u00CF\u007F}", "{\\rtf1 {\\uc1\\u207?}\x7F}"}};
    for (const auto& [source, bytes] : cases) {
        EXPECT_EQ(ToRichBytes(source), bytes) << Utf16ToUtf8(source);
    }
}

TEST(ToAsciiRichTest, BytesKeepTheMeaningThatTheyHaveInTheSource) {
    const std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"{\\rtf1\\ansicpg1251 a\u00CF\u0416\u00E9\\\u00CF}",
         "{\\rtf1\\ansicpg1251 a\\'cf{\\uc1\\u1046?}\\'e9\\'cf}"},
        {u"{\\urtf1 \u00CF}", "{\\rtf1 {\\uc1\\u207?}}"},
        // An escape would not be one within data, or within a character of two bytes.
        {u"{\\rtf1\\bin1 \u00CF}", "{\\rtf1\\bin1 \xCF}"},
        {u"{\\rtf1\\ansicpg932 \u0083\\}", "{\\rtf1\\ansicpg932 \x83\\}"}};
    for (const auto& [source, bytes] : cases) {
        EXPECT_EQ(ToAsciiRich(source), bytes) << Utf16ToUtf8(source);
    }
}

TEST(LastParagraph, IsTheMarkBeforeTheClosingBrace) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"{\\rtf1 a\\par\r\n}\r\n", u"{\\rtf1 a\r\n}\r\n"},
        {u"{\\rtf1 a\\par b}", u"{\\rtf1 a\\par b}"},
        {u"{a\\\\par}", u"{a\\\\par}"},  // a backslash and a word
        {u"{a\\par\\par}", u"{a\\par}"},
        {u"", u""},
    };
    for (const auto& [source, without] : cases) {
        EXPECT_EQ(WithoutLastParagraph(source), without) << Utf16ToUtf8(source);
        EXPECT_EQ(EndsInParagraph(source), source != without) << Utf16ToUtf8(source);
    }
}

TEST(RichGroupDepthTest, CountsOnlyBracesThatOpenGroups) {
    const std::pair<std::string_view, std::size_t> cases[] = {
        {"", 0},          {"{a{b}{c}}", 2}, {"}}{{", 2},     {"{\\{\\{\\}", 1},
        {"{\\\\{a}}", 2}, {"{\\'}}{{", 3},  {"{\\'7b}{", 1}, {"{\\", 1}};
    for (const auto& [bytes, depth] : cases) {
        EXPECT_EQ(RichGroupDepth(bytes), depth) << bytes;
    }
}

TEST(RichTextSizeTest, LongRunsOfDigitsAreNoText) {
    const std::string picture =
        "{\\pict " + std::string(70, 'a') + "\r\n" + std::string(8, '0') + "}";
    EXPECT_EQ(RichTextSize(picture), 8U);
    EXPECT_EQ(RichTextSize(std::string(70, '1')), 0U);
    EXPECT_EQ(RichTextSize("{" + std::string(63, 'f') + "}x"), 66U);
    EXPECT_EQ(RichTextSize(std::string(70, 'x')), 70U);
}

}  // namespace
}  // namespace vbr

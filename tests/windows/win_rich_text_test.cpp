// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_system_info.h"
#include "fakes/memory_log.h"
#include "macros/rich_macros.h"
#include "platform/rich_source.h"
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

class WinRichText : public testing::Test {
  protected:
    std::string Saved() const {
        const auto source = engine_.SaveSource();
        return source ? Utf16ToUtf8(*source) : "nothing";
    }

    MemoryLog log_;
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
    ASSERT_TRUE(engine_.LoadSource(
        u"{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}a\\b\\cf1 Д😀\\b0\\cf0\\par c}"));
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
    ASSERT_TRUE(engine_.LoadSource(
        u"{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"
        u"a\\cf1\\b old\\b0\\cf2 z}"));
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

TEST_F(WinRichText, MacrosOfASourceAreExpandedInTheirFormat) {
    FakeClock clock;
    FakeLocale locale;
    FakeSystemInfo system;
    FakeKeyboardLayouts layouts;
    MacroValues values(clock, locale, system);
    MacroEngine macros(values, layouts, locale, log_);
    const RichMacros rich(macros, layouts, locale, engine_);
    std::u16string source =
        u"{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"
        u"\\b\\cf1 %ACTIVATE_KL_RU%a\\cf2 %SELECTED_\\i TEXT%\\i0\\b0\\par\\cf0 "
        u"b%CURSOR_POS%c\\par d%CLIPBOARD_TEXT%\\par}";
    const MacroOutcome outcome =
        rich.ExpandMacrosRich(source, {u"Привет\r\n😀", u"{\\b}", kEnglish});
    EXPECT_EQ(outcome.Replaced, 4U);
    EXPECT_EQ(outcome.Layout, kRussian);
    EXPECT_EQ(outcome.CursorBack, 7U);  // from "c": a paragraph's end is one step
    EXPECT_EQ(RichToPlainText(source, engine_), u"aПривет\r\n😀\r\nbc\r\nd{\\b}");
    EXPECT_EQ(engine_.ColorOf({0, 10}), kRed);
    EXPECT_EQ(engine_.ColorOf({11, 12}), kAutomatic);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include <random>
#include <span>

#include "fakes/macro_fixture.h"
#include "fakes/text_cases.h"
#include "macros/macro_engine.h"
#include "macros/macro_tokens.h"
#include "macros/rich_macros.h"
#include "macros/url_text.h"

namespace vbr {
namespace {

class MacroExpansion : public testing::Test, protected MacroFixture {
  protected:
    MacroExpansion() { Clock.Local = {2025, 3, 3, 5, 21, 7, 30, 0}; }  // Wednesday, 5 March

    std::u16string Expanded(std::u16string_view text, std::u16string_view selection = {},
                            std::u16string_view clipboard = {}, Lcid language = kEnglish) {
        std::u16string expanded(text);
        outcome_ = Engine.ExpandMacros(expanded, {selection, clipboard, language});
        return expanded;
    }

    MacroOutcome outcome_;
};

TEST_F(MacroExpansion, ValuesStandInPlaceOfTheirTokens) {
    System.Cursor = Point{3, -2};
    ExpectTexts({{u"<%DAY%|%DAY2%|%MONTHNUMBER%|%MONTHNUMBER2%>", u"<5|05|3|03>"},
                 {u"%YEAR%|%YEAR2%|%MONTHNAME%|%MONTHNAME_ABBR%", u"2025|25|March|Mar"},
                 {u"%DATETIME%|%WEEKDAYNAME_ABBR%", u"Wednesday, March 5, 2025 21:7:30|Wed"},
                 {u"%UPPER_SELTEXT%|%LOWER_SELTEXT%", u"ДВА 2|два 2"},
                 {u"%NUMBERCHARS_SELTEXT%|%NUMBERCHARS_CLIPBOARD%", u"Два два|семь"},
                 {u"%VBR_VERSION%|%VBR_VERSION_EDITOR%|%VBR_VERSION_DLL%", u"main|editor|library"},
                 {u"%MOUSEPOS_ASLARAM%", u"-131069"},  // 3 in the low 16 bits, -2 in the high ones
                 {u"%WINSYSDIR%", u"ERROR on GetSystemDirectory"},
                 {u"a%PROMPT_TEXT={}%%KEYPRESS_ENTER%%KEYPRESS_TAB%", u"a\r\t"}},
                [this](std::u16string_view text) { return Expanded(text, u"Два 2", u"7"); });
}

TEST_F(MacroExpansion, WhatIsNoTokenStaysAndIsNotCounted) {
    const std::u16string_view text = u"100% %date% %DAY %NO_SUCH% %ACTIVATE_KL_DE%";
    EXPECT_EQ(Expanded(text), text);
    EXPECT_EQ(outcome_.Replaced, 0U);
    Expanded(u"%DAY%%CURSOR_POS%%DAY% %ACTIVATE_KL_EN%%YEAR%");
    EXPECT_EQ(outcome_.Replaced, 3U);
}

TEST_F(MacroExpansion, CursorMarkGivesTheStepsBackFromTheEnd) {
    const std::tuple<std::u16string_view, std::u16string_view, std::size_t> cases[] = {
        {u"end%CURSOR_POS%", u"end", 0},
        {u"a\r\nb%CURSOR_POS%c\r\nd", u"a\r\nbc\r\nd", 3},
        {u"%CURSOR_POS%%YEAR%", u"2025", 4},
        {u"(%CLIPBOARD_TEXT%)", u"(pq)", 2},
        {u"a%CURSOR_POS%b%CURSOR_POS%👍🏽c", u"ab👍🏽c", 3}};
    for (const auto& [text, expected, back] : cases) {
        EXPECT_EQ(Expanded(text, {}, u"p%CURSOR_POS%q"), expected);
        EXPECT_EQ(outcome_.CursorBack.value_or(0), back) << Utf16ToUtf8(text);
    }
}

TEST_F(MacroExpansion, TheLastLayoutInTokenOrderIsAskedFor) {
    EXPECT_EQ(Expanded(u"%ACTIVATE_KL_RU%a%ACTIVATE_KL_EN%"), u"a");
    EXPECT_EQ(outcome_.Layout, kRussian);
    Expanded(u"%ACTIVATE_KL_EN%");
    EXPECT_EQ(outcome_.Layout, kBritish);  // the last installed one of the language
}

TEST_F(MacroExpansion, AValueIsWorkedOutOnlyForATokenInTheText) {
    Expanded(u"100% %SELECTED_TEXT%", u"a");
    EXPECT_EQ(System.Asked, 0);
    Expanded(u"%WINDOWS_USERNAME% and %WINDOWS_USERNAME%");
    EXPECT_EQ(System.Asked, 1);
}

// Over random texts, from a seed that stays the same.
class MacroProperties : public MacroExpansion {
  protected:
    std::u16string RandomText(std::span<const std::u16string> pieces) {
        std::u16string text;
        for (auto i = random_() % 20; i > 0; --i) {
            text += pieces[random_() % pieces.size()];
        }
        return text;
    }

    // The words of the rule, one token after the other over the whole text.
    std::u16string TokenByToken(std::u16string text, MacroInput input, std::size_t& replaced) {
        const std::u16string trimmed = TrimProtocols(input.SelText);
        if (ReplaceAll(text, kMacroTrimProtocols, u"") > 0) {
            input.SelText = trimmed;
        }
        Engine.StripLayoutMacros(text);
        for (const std::u16string& token : Engine.GetMacroList()) {
            if (token != kMacroCursorPos && token != kMacroTrimProtocols) {
                const std::size_t count = ReplaceAll(text, token, Engine.MacroValue(token, input));
                replaced += token.starts_with(kMacroLayoutPrefix) ? 0 : count;
            }
        }
        ReplaceAll(text, kMacroCursorPos, u"");
        return text;
    }

    std::mt19937 random_{42};
};

TEST_F(MacroProperties, TokensAreReplacedInTheirOrderWhereverValuesPutThem) {
    std::vector<std::u16string> pieces(Engine.GetMacroList());
    for (const char16_t* part : {u"%", u"%DA", u"Y%", u"YEAR", u"TIME", u"KEYPRESS_", u"TAB%",
                                 u"%PROMPT_TEXT={", u"}%", u"http://", u" ", u"7"}) {
        pieces.push_back(part);
    }
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = RandomText(pieces);
        const std::u16string selection = RandomText(pieces);
        const std::u16string clipboard = RandomText(pieces);
        const MacroInput input{selection, clipboard, kEnglish};
        std::size_t replaced = 0;
        const std::u16string expected = TokenByToken(text, input, replaced);
        std::u16string expanded = text;
        EXPECT_EQ(Engine.ExpandMacros(expanded, input).Replaced, replaced);
        ASSERT_EQ(expanded, expected) << Utf16ToUtf8(text);
    }
}

class RichMacroExpansion : public MacroExpansion {
  protected:
    // The one segment of a source.
    std::u16string ExpandedRich(std::u16string_view source, std::u16string_view selection = {},
                                std::u16string_view clipboard = {}) {
        const auto segments = Rich.ExpandSegments(source, {selection, clipboard, kEnglish});
        if (!segments || segments->size() != 1) {
            return u"none";
        }
        cursorBack_ = segments->front().CursorBack.value_or(0);
        return segments->front().Text;
    }

    std::size_t cursorBack_ = 99;
};

TEST_F(RichMacroExpansion, AValueTakesTheColourBeforeItsTokenAndIsWorkedOutOnce) {
    ExpectTexts({{u"{\\1a\\2%YEAR%\\3b}", u"{\\1a2025\\3b}"},
                 {u"{\\2%YEAR%\\1b}", u"{\\22025\\1b}"},
                 {u"{\\1a\\2%DAY%%YEAR%}", u"{\\1a52025}"},
                 {u"{%WINDOWS_USERNAME% and %WINDOWS_USERNAME%}", u"{ann and ann}"}},
                [this](std::u16string_view source) { return ExpandedRich(source); });
    EXPECT_EQ(System.Asked, 1);
    // The selection keeps its protocol.
    EXPECT_EQ(ExpandedRich(u"{%SELECTED_TEXT%|%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%}", u"http://a.org"),
              u"{http://a.org|}");
}

TEST_F(RichMacroExpansion, ValuesAreLookedIntoOnlyForTokensThatSortBehindTheirOwn) {
    EXPECT_EQ(ExpandedRich(u"{%SELECTED_TEXT%-%SELECTED_TEXT%}",
                           u"%SELECTED_TEXT%\r\n%YEAR% %CLIPBOARD_TEXT%", u"clip"),
              u"{%SELECTED_TEXT%\n2025 %CLIPBOARD_TEXT%-%SELECTED_TEXT%\n2025 %CLIPBOARD_TEXT%}");
    EXPECT_EQ(ExpandedRich(u"{%CLIPBOARD_TEXT%}", {}, u"%ACTIVATE_KL_DE%x%CURSOR_POS%y"),
              u"{%ACTIVATE_KL_DE%xy}");
    EXPECT_EQ(cursorBack_, 1U);
}

TEST_F(RichMacroExpansion, LayoutAndCursorMacrosGoAndTheFirstCursorMarkCounts) {
    const std::u16string_view source =
        u"{%ACTIVATE_KL_RU%%ACTIVATE_KL_EN%a\nb%CURSOR_POS%👍🏽\nd%CURSOR_POS%%DAY%}";
    EXPECT_EQ(ExpandedRich(source), u"{a\nb👍🏽\nd5}");
    EXPECT_EQ(cursorBack_, 4U);
    RichText.ShowsText = false;
    EXPECT_EQ(ExpandedRich(source), u"{a\nb👍🏽\nd5}");
    EXPECT_EQ(cursorBack_, 7U);  // units, where the engine doesn't show them
}

TEST_F(RichMacroExpansion, TheLastParagraphKeepsItsMarkUnlessTheCursorGoesBackFromTheEnd) {
    ExpectTexts({{u"{%DAY%}", u"{5}"},
                 {u"{%DAY%\\par}", u"{5\\par}"},
                 {u"{%DAY%%CURSOR_POS%\n\\par}", u"{5\n}"},
                 {u"{a\\par}", u"{a\\par}"}},
                [this](std::u16string_view source) { return ExpandedRich(source); });
}

TEST_F(RichMacroExpansion, PromptsPartASourceIntoSourcesOfTheirOwn) {
    constexpr SegmentKind kText = SegmentKind::Text;
    constexpr SegmentKind kPrompt = SegmentKind::Prompt;
    const std::pair<std::u16string_view, std::vector<RichSegment>> cases[] = {
        {u"{\\1%DAY%\\2b\n%CURSOR_POS%c%prompt\\3_TEXT=\\{%DAY%\n\\4é\\}%%DAY%\\{d\\par}",
         {{kText, u"{\\15\\2b\nc}", 1}, {kPrompt, u"%DAY%\r\né"}, {kText, u"{\\45\\{d\\par}"}}},
        // Braces that stand bare in the source.
        {u"{a%PROMPT_TEXT={x}%\n%PROMPT_TEXT={}%}",
         {{kText, u"{a}"}, {kPrompt, u"x"}, {kText, u"{\n}"}, {kPrompt, u""}}},
        {u"{%CLIPBOARD_TEXT%%PROMPT_TEXT=\\{x\\} %}",
         {{kText, u"{%PROMPT_TEXT=\\{v\\}%%PROMPT_TEXT=\\{x\\} %}"}}}};
    for (const auto& [source, segments] : cases) {
        const MacroInput input{u"", u"%PROMPT_TEXT={v}%", kEnglish};
        EXPECT_EQ(Rich.ExpandSegments(source, input), segments) << Utf16ToUtf8(source);
    }
    EXPECT_EQ(Rich.ExpandMacrosRich(cases[0].first, {}), u"{\\15\\2b\nc%DAY%\né\\45\\{d}");
}

TEST_F(RichMacroExpansion, ASourceWithNothingReplacedStaysAsItIs) {
    // The engine would write the empty colour change differently.
    for (const std::u16string_view source : {u"{\\1\\2100% %date%}", u"{\\1\\2a}"}) {
        EXPECT_EQ(ExpandedRich(source), source);
        EXPECT_EQ(Rich.ExpandMacrosRich(source, {}), source);
    }
    EXPECT_EQ(System.Asked, 0);
}

TEST_F(RichMacroExpansion, AFailingEngineGivesNothing) {
    EXPECT_EQ(Rich.ExpandSegments(u"no source %YEAR%", {}), std::nullopt);
    RichText.CanSave = false;
    EXPECT_EQ(Rich.ExpandSegments(u"{%YEAR%}", {}), std::nullopt);
    EXPECT_EQ(Rich.ExpandMacrosRich(u"{%YEAR%}", {}), std::nullopt);
}

}  // namespace
}  // namespace vbr

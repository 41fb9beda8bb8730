// SPDX-License-Identifier: MIT
#include "macros/macro_engine.h"

#include "fakes/macro_desk.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

class MacroExpansion : public testing::Test, protected MacroDesk {
  protected:
    std::u16string Expanded(std::u16string_view text, std::u16string_view selection = {},
                            std::u16string_view clipboard = {}, Lcid language = kEnglish) {
        std::u16string expanded(text);
        Clock.Local = {2025, 3, 3, 5, 21, 7, 30, 0};  // Wednesday, 5 March
        outcome_ = Engine.ExpandMacros(expanded, {selection, clipboard, language});
        return expanded;
    }

    MacroOutcome outcome_;
};

TEST_F(MacroExpansion, ValuesStandInPlaceOfTheirTokens) {
    System.Cursor = ScreenPoint{3, -2};
    ExpectTexts({{u"<%DAY%|%DAY2%|%MONTHNUMBER%|%MONTHNUMBER2%>", u"<5|05|3|03>"},
                 {u"%YEAR%|%YEAR2%|%MONTHNAME%|%MONTHNAME_ABBR%", u"2025|25|March|Mar"},
                 {u"%DATETIME%|%WEEKDAYNAME_ABBR%", u"Wednesday, March 5, 2025 21:7:30|Wed"},
                 {u"%UPPER_SELTEXT%|%LOWER_SELTEXT%", u"ДВА 2|low Два 2"},
                 {u"%NUMBERCHARS_SELTEXT%|%NUMBERCHARS_CLIPBOARD%", u"Два два|семь"},
                 {u"%VBR_VERSION%|%VBR_VERSION_EDITOR%|%VBR_VERSION_DLL%", u"main|editor|library"},
                 {u"%MOUSEPOS_ASLARAM%", u"-131069"},  // 3 in the low 16 bits, -2 in the high ones
                 {u"%WINSYSDIR%", u"ERROR on GetSystemDirectory"},
                 {u"a%PROMPT_TEXT={}%%KEYPRESS_ENTER%%KEYPRESS_TAB%", u"a\r\t"}},
                [this](std::u16string_view text) { return Expanded(text, u"Два 2", u"7"); });
}

TEST_F(MacroExpansion, DateWithoutWeekdayHasNoCommaOrBlankLeftOver) {
    EXPECT_EQ(Expanded(u"%DATE_EX_WD%|%DATETIME_EX_WD%"), u"March 5, 2025|March 5, 2025 21:7:30");
    EXPECT_EQ(Expanded(u"%DATE%|%DATE_EX_WD%", {}, {}, kRussian),
              u"5.3.2025 г., среда|5.3.2025 г.");
}

TEST_F(MacroExpansion, WhatIsNoTokenStaysAndIsNotCounted) {
    const std::u16string_view text = u"100% %date% %DAY %NO_SUCH% %ACTIVATE_KL_DE%";
    EXPECT_EQ(Expanded(text), text);
    EXPECT_EQ(outcome_.Replaced, 0U);
    Expanded(u"%DAY%%CURSOR_POS%%DAY% %ACTIVATE_KL_EN%%YEAR%");
    EXPECT_EQ(outcome_.Replaced, 3U);
}

TEST_F(MacroExpansion, CursorMarkGivesTheStepsBackFromTheEnd) {
    struct Case {
        std::u16string_view Text;
        std::u16string_view Expected;
        std::size_t CursorBack;
    };
    const Case cases[] = {{u"end%CURSOR_POS%", u"end", 0},
                          {u"a\r\nb%CURSOR_POS%c\r\nd", u"a\r\nbc\r\nd", 3},
                          {u"%CURSOR_POS%%YEAR%", u"2025", 4},
                          {u"(%CLIPBOARD_TEXT%)", u"(pq)", 2},
                          // The 12 units of the second mark are among those behind the first.
                          {u"a%CURSOR_POS%b%CURSOR_POS%c", u"abc", 14}};
    for (const Case& c : cases) {
        EXPECT_EQ(Expanded(c.Text, {}, u"p%CURSOR_POS%q"), c.Expected);
        EXPECT_EQ(outcome_.CursorBack, c.CursorBack) << Utf16ToUtf8(c.Text);
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

}  // namespace
}  // namespace vbr

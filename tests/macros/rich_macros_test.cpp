// SPDX-License-Identifier: MIT
#include "macros/rich_macros.h"

#include "fakes/macro_desk.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

class RichMacroExpansion : public testing::Test, protected MacroDesk {
  protected:
    std::u16string Expanded(std::u16string_view source, std::u16string_view selection = {},
                            std::u16string_view clipboard = {}) {
        std::u16string expanded(source);
        Clock.Local = {2025, 3, 3, 5, 21, 7, 30, 0};
        outcome_ = Rich.ExpandMacrosRich(expanded, {selection, clipboard, kEnglish});
        return expanded;
    }

    MacroOutcome outcome_;
};

TEST_F(RichMacroExpansion, AValueTakesTheColourBeforeItsToken) {
    ExpectTexts({{u"{\\1a\\2%YEAR%\\3b}", u"{\\1a2025\\3b}"},
                 {u"{a\\2%YEAR%}", u"{a2025}"},
                 {u"{\\2%YEAR%\\1b}", u"{\\22025\\1b}"},
                 {u"{\\1a\\2%DAY%%YEAR%}", u"{\\1a52025}"}},
                [this](std::u16string_view source) { return Expanded(source); });
}

TEST_F(RichMacroExpansion, ValuesAreLookedIntoOnlyForTokensThatSortBehindTheirOwn) {
    EXPECT_EQ(Expanded(u"{%SELECTED_TEXT%-%SELECTED_TEXT%}",
                       u"%SELECTED_TEXT%\r\n%YEAR% %CLIPBOARD_TEXT%", u"clip"),
              u"{%SELECTED_TEXT%\n2025 %CLIPBOARD_TEXT%-%SELECTED_TEXT%\n2025 %CLIPBOARD_TEXT%}");
    EXPECT_EQ(outcome_.Replaced, 4U);
    EXPECT_EQ(Expanded(u"{%CLIPBOARD_TEXT%}", {}, u"%ACTIVATE_KL_DE%x%CURSOR_POS%y"),
              u"{%ACTIVATE_KL_DE%xy}");
    EXPECT_EQ(outcome_.CursorBack, 1U);
}

TEST_F(RichMacroExpansion, TheSelectionKeepsItsProtocol) {
    EXPECT_EQ(Expanded(u"{%SELECTED_TEXT%|%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%}", u"http://a.org"),
              u"{http://a.org|}");
}

TEST_F(RichMacroExpansion, LayoutAndCursorMacrosAreCountedToo) {
    EXPECT_EQ(Expanded(u"{%ACTIVATE_KL_RU%%ACTIVATE_KL_EN%a\nb%CURSOR_POS%c\nd%CURSOR_POS%%DAY%}"),
              u"{a\nbc\nd%CURSOR_POS%5}");
    EXPECT_EQ(outcome_.Replaced, 4U);
    EXPECT_EQ(outcome_.Layout, kRussian);
    EXPECT_EQ(outcome_.CursorBack, 16U);  // the second mark's 12 units are among them
}

TEST_F(RichMacroExpansion, ASourceWithNothingReplacedOrAFailingEngineStaysAsItIs) {
    // The engine would write the empty colour change differently.
    for (const std::u16string_view source :
         {u"no source %YEAR%", u"{\\1\\2100% %date%}", u"{\\1\\2a}"}) {
        EXPECT_EQ(Expanded(source), source);
        EXPECT_EQ(outcome_.Replaced, 0U);
    }
    EXPECT_EQ(System.Asked, 0);
    RichText.CanSave = false;
    const std::u16string_view source = u"{%ACTIVATE_KL_RU%%CURSOR_POS%%YEAR%}";
    EXPECT_EQ(Expanded(source), source);
    EXPECT_EQ(outcome_.Replaced + outcome_.CursorBack + outcome_.Layout, 0U);
}

TEST_F(RichMacroExpansion, AValueIsWorkedOutOnceForATokenOfTheText) {
    EXPECT_EQ(Expanded(u"{%WINDOWS_USERNAME% and %WINDOWS_USERNAME%}"), u"{ann and ann}");
    EXPECT_EQ(System.Asked, 1);
}

TEST_F(RichMacroExpansion, ASourceThatCannotBeLoadedAsksForNoLayout) {
    EXPECT_EQ(Rich.StripLayoutMacrosRich(u"{%ACTIVATE_KL_EN%}"), kBritish);
    EXPECT_EQ(Rich.StripLayoutMacrosRich(u"%ACTIVATE_KL_EN%"), 0U);
}

TEST_F(RichMacroExpansion, PlainTextOfASourceThatCannotBeLoadedIsEmpty) {
    EXPECT_EQ(RichToPlainText(u"{a\n\\1b}", RichText), u"a\r\nb");
    EXPECT_EQ(RichToPlainText(u"a", RichText), u"");
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "macros/rich_macros.h"

#include <gtest/gtest.h>

#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/fake_system_info.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

class RichMacroExpansion : public testing::Test {
  protected:
    std::u16string Expanded(std::u16string_view source, std::u16string_view selection = {},
                            std::u16string_view clipboard = {}) {
        std::u16string expanded(source);
        clock_.Local = {2025, 3, 3, 5, 21, 7, 30, 0};
        outcome_ = rich_.ExpandMacrosRich(expanded, {selection, clipboard, kEnglish});
        return expanded;
    }

    FakeClock clock_;
    FakeLocale locale_;
    FakeSystemInfo system_;
    FakeKeyboardLayouts layouts_;
    MemoryLog log_;
    MacroValues values_{clock_, locale_, system_};
    MacroEngine macros_{values_, layouts_, locale_, log_};
    FakeRichTextEngine engine_;
    RichMacros rich_{macros_, layouts_, locale_, engine_};
    MacroOutcome outcome_;
};

TEST_F(RichMacroExpansion, AValueTakesTheColourBeforeItsToken) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"{\\1a\\2%YEAR%\\3b}", u"{\\1a2025\\3b}"},
        {u"{a\\2%YEAR%}", u"{a2025}"},
        {u"{\\2%YEAR%\\1b}", u"{\\22025\\1b}"},
        {u"{\\1a\\2%DAY%%YEAR%}", u"{\\1a52025}"}};
    for (const auto& [source, expected] : cases) {
        EXPECT_EQ(Expanded(source), expected);
    }
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
    EXPECT_EQ(system_.Asked, 0);
    engine_.CanSave = false;
    const std::u16string_view source = u"{%ACTIVATE_KL_RU%%CURSOR_POS%%YEAR%}";
    EXPECT_EQ(Expanded(source), source);
    EXPECT_EQ(outcome_.Replaced + outcome_.CursorBack + outcome_.Layout, 0U);
}

TEST_F(RichMacroExpansion, AValueIsWorkedOutOnceForATokenOfTheText) {
    EXPECT_EQ(Expanded(u"{%WINDOWS_USERNAME% and %WINDOWS_USERNAME%}"), u"{ann and ann}");
    EXPECT_EQ(system_.Asked, 1);
}

TEST_F(RichMacroExpansion, LayoutOfASourceIsTheLastInTokenOrder) {
    const std::pair<std::u16string_view, Lcid> cases[] = {
        {u"{%ACTIVATE_KL_RU%a%ACTIVATE_KL_EN%}", kRussian},
        {u"{%ACTIVATE_KL_EN%}", kBritish},
        {u"{%ACTIVATE_KL_DE%}", 0},
        {u"%ACTIVATE_KL_EN%", 0},
        {u"", 0}};
    for (const auto& [source, layout] : cases) {
        EXPECT_EQ(rich_.StripLayoutMacrosRich(source), layout) << Utf16ToUtf8(source);
    }
}

TEST_F(RichMacroExpansion, PlainTextOfASourceThatCannotBeLoadedIsEmpty) {
    EXPECT_EQ(RichToPlainText(u"{a\n\\1b}", engine_), u"a\r\nb");
    EXPECT_EQ(RichToPlainText(u"a", engine_), u"");
}

}  // namespace
}  // namespace vbr

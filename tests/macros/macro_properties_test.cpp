// SPDX-License-Identifier: MIT
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <span>

#include "base/text.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_system_info.h"
#include "fakes/memory_log.h"
#include "macros/macro_engine.h"
#include "macros/macro_tokens.h"
#include "macros/url_text.h"

namespace vbr {
namespace {

class MacroProperties : public testing::Test {
  protected:
    MacroProperties() { clock_.Local = {2025, 3, 3, 5, 21, 7, 30, 0}; }

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
        engine_.StripLayoutMacros(text);
        for (const std::u16string& token : engine_.GetMacroList()) {
            if (token != kMacroCursorPos && token != kMacroTrimProtocols) {
                const std::size_t count = ReplaceAll(text, token, engine_.MacroValue(token, input));
                replaced += token.starts_with(kMacroLayoutPrefix) ? 0 : count;
            }
        }
        ReplaceAll(text, kMacroCursorPos, u"");
        return text;
    }

    std::mt19937 random_{42};
    FakeClock clock_;
    FakeLocale locale_;
    FakeSystemInfo system_;
    FakeKeyboardLayouts layouts_;
    MemoryLog log_;
    MacroValues values_{clock_, locale_, system_};
    MacroEngine engine_{values_, layouts_, locale_, log_};
};

TEST_F(MacroProperties, ATextWithoutTokensComesBackAsItIs) {
    const std::u16string pieces[] = {
        u"%",           u"%%",     u"%date%",       u"%DA", u"%NO_SUCH%",    u"{",
        u"}",           u"\xD800", u"\xDC00",       u"x",   u"PROMPT_TEX={", u"\r\n",
        u"%SELECTED_T", u"_",      u"%ACTIVATE_KL_"};
    for (int round = 0; round < 2000; ++round) {
        const std::u16string text = RandomText(pieces);
        std::u16string expanded = text;
        const MacroOutcome outcome = engine_.ExpandMacros(expanded, {u"sel", u"clip", kEnglish});
        ASSERT_EQ(expanded, text);
        EXPECT_EQ(outcome.Replaced + outcome.CursorBack + outcome.Layout, 0U);
    }
}

TEST_F(MacroProperties, TokensAreReplacedInTheirOrderWhereverValuesPutThem) {
    std::vector<std::u16string> pieces(engine_.GetMacroList());
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
        EXPECT_EQ(engine_.ExpandMacros(expanded, input).Replaced, replaced);
        ASSERT_EQ(expanded, expected) << Utf16ToUtf8(text);
    }
}

TEST_F(MacroProperties, NoListedTokenStaysInATextThatHoldsThemAll) {
    std::u16string text;
    for (const std::u16string& token : engine_.GetMacroList()) {
        text += Concat(u"<", token, u">");
    }
    const MacroOutcome outcome = engine_.ExpandMacros(text, {u"sel", u"clip", kEnglish});
    EXPECT_EQ(text.find(u'%'), text.npos) << Utf16ToUtf8(text);
    EXPECT_EQ(outcome.Layout, kRussian);
}

TEST_F(MacroProperties, AValueMayHoldAPromptOrTheTokenItself) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"%SELECTED_TEXT%", u"%SELECTED_TEXT%"},
        {u"%PROMPT_TEXT={a}%%PROMPT_TEXT={}%", u"%PROMPT_TEXT={a}%%PROMPT_TEXT={}%"},
        {u"%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%", u"%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%"},
        {u"%ACTIVATE_KL_EN%", u"%ACTIVATE_KL_EN%"}};
    for (const auto& [selection, expected] : cases) {
        std::u16string text = u"%SELECTED_TEXT%";
        const MacroOutcome outcome = engine_.ExpandMacros(text, {selection, {}, kEnglish});
        EXPECT_EQ(text, expected);
        EXPECT_EQ(outcome.Layout, 0U);
    }
    // Percent signs of the text may close what a value opens.
    std::u16string text = u"%%SELECTED_TEXT%%";
    engine_.ExpandMacros(text, {u"YEAR", {}, kEnglish});
    EXPECT_EQ(text, u"2025");
}

TEST_F(MacroProperties, TenMegabytesExpandWhole) {
    constexpr std::u16string_view kLine = u"100% of %YEAR%, 50 % of %SELECTED_TEXT%;\r\n";
    constexpr std::u16string_view kExpected = u"100% of 2025, 50 % of it;\r\n";
    std::u16string text;
    std::size_t lines = 0;
    for (; text.size() * sizeof(char16_t) < 10U << 20; ++lines) {
        text += kLine;
    }
    EXPECT_EQ(engine_.ExpandMacros(text, {u"it", {}, kEnglish}).Replaced, 2 * lines);
    ASSERT_EQ(text.size(), lines * kExpected.size());
    for (std::size_t at = 0; at < text.size(); at += kExpected.size()) {
        ASSERT_EQ(std::u16string_view(text).substr(at, kExpected.size()), kExpected);
    }
}

}  // namespace
}  // namespace vbr

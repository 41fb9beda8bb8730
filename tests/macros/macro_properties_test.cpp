// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <random>
#include <span>

#include "base/text.h"
#include "fakes/macro_desk.h"
#include "macros/macro_tokens.h"
#include "macros/url_text.h"

namespace vbr {
namespace {

class MacroProperties : public testing::Test, protected MacroDesk {
  protected:
    MacroProperties() { Clock.Local = {2025, 3, 3, 5, 21, 7, 30, 0}; }

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

TEST_F(MacroProperties, ATextWithoutTokensComesBackAsItIs) {
    const std::u16string pieces[] = {
        u"%",           u"%%",     u"%date%",       u"%DA", u"%NO_SUCH%",    u"{",
        u"}",           u"\xD800", u"\xDC00",       u"x",   u"PROMPT_TEX={", u"\r\n",
        u"%SELECTED_T", u"_",      u"%ACTIVATE_KL_"};
    for (int round = 0; round < 2000; ++round) {
        const std::u16string text = RandomText(pieces);
        std::u16string expanded = text;
        const MacroOutcome outcome = Engine.ExpandMacros(expanded, {u"sel", u"clip", kEnglish});
        ASSERT_EQ(expanded, text);
        EXPECT_EQ(outcome.Replaced + outcome.CursorBack + outcome.Layout, 0U);
    }
}

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

TEST_F(MacroProperties, NoListedTokenStaysInATextThatHoldsThemAll) {
    std::u16string text;
    for (const std::u16string& token : Engine.GetMacroList()) {
        text += Concat(u"<", token, u">");
    }
    const MacroOutcome outcome = Engine.ExpandMacros(text, {u"sel", u"clip", kEnglish});
    EXPECT_EQ(text.find(u'%'), text.npos) << Utf16ToUtf8(text);
    EXPECT_EQ(outcome.Layout, kRussian);
}

}  // namespace
}  // namespace vbr

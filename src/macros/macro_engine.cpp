// SPDX-License-Identifier: MIT
#include "macros/macro_engine.h"

#include <algorithm>

#include "base/text.h"
#include "macros/layout_macros.h"
#include "macros/macro_tokens.h"
#include "macros/url_text.h"

namespace vbr {
namespace {

// Takes every %CURSOR_POS% out of the text; the units that stood behind the first one, a CR LF
// counted as the one step that a cursor key makes of it.
std::size_t TakeCursorMark(std::u16string& text) {
    const std::size_t mark = text.find(kMacroCursorPos);
    if (mark == text.npos) {
        return 0;
    }
    const std::u16string_view behind =
        std::u16string_view(text).substr(mark + kMacroCursorPos.size());
    const auto lineFeeds = std::count(behind.begin(), behind.end(), u'\n');
    const std::size_t steps = behind.size() - static_cast<std::size_t>(lineFeeds);
    ReplaceAll(text, kMacroCursorPos, u"");
    return steps;
}

}  // namespace

const std::vector<std::u16string>& MacroEngine::GetMacroList() const {
    if (list_.empty()) {
        const auto fixed = MacroValues::FixedTokens();
        list_.assign(fixed.begin(), fixed.end());
        for (const auto& [token, language] : InstalledLayoutMacros(layouts_, locale_)) {
            list_.push_back(token);
        }
        std::sort(list_.begin(), list_.end());
    }
    return list_;
}

MacroOutcome MacroEngine::ExpandMacros(std::u16string& text, const MacroInput& input) const {
    MacroOutcome outcome;
    if (text.find(u'%') == text.npos) {
        return outcome;
    }
    MacroInput prepared = input;
    std::u16string trimmed;
    if (ReplaceAll(text, kMacroTrimProtocols, u"") > 0) {
        trimmed = TrimProtocols(input.SelText);
        prepared.SelText = trimmed;
    }
    outcome.Layout = StripLayoutMacros(text);
    for (const std::u16string& token : GetMacroList()) {
        if (token != kMacroCursorPos && token != kMacroTrimProtocols) {
            outcome.Replaced += ReplaceToken(text, token, prepared);
        }
    }
    outcome.CursorBack = TakeCursorMark(text);
    return outcome;
}

MacroOutcome MacroEngine::ExpandMacrosPlain(std::u16string& text) const {
    return ExpandMacros(text,
                        {.SelText = {}, .ClipboardText = {}, .Language = locale_.UserDefault()});
}

Lcid MacroEngine::StripLayoutMacros(std::u16string& text) const {
    return vbr::StripLayoutMacros(text, layouts_, locale_);
}

std::size_t MacroEngine::ReplaceToken(std::u16string& text, std::u16string_view token,
                                      const MacroInput& input) const {
    if (text.find(token) == text.npos) {
        return 0;
    }
    const std::u16string value = MacroValue(token, input);
    const std::size_t count = ReplaceAll(text, token, value);
    if (token == kMacroUrlFromClipboard) {
        log_.Write(Concat(u"PreReplaced MC_URL_FROMCLIPBOARD command=[", text, u"] result=[", value,
                          u"]"));
    }
    return token.starts_with(kMacroLayoutPrefix) ? 0 : count;
}

}  // namespace vbr

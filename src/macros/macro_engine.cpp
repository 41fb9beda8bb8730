// SPDX-License-Identifier: MIT
#include "macros/macro_engine.h"

#include <algorithm>

#include "base/cursor_steps.h"
#include "base/text.h"
#include "macros/layout_macros.h"
#include "macros/macro_tokens.h"
#include "macros/url_text.h"
#include "macros/value_marks.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSign = u"%";
constexpr std::size_t kUsualTokens = 8;

// Whether a value may bring in a token, or make one with the text around it. No token has a blank
// or a small letter inside.
bool MayMakeToken(std::u16string_view value) {
    const auto breaksTokens = [](char16_t c) { return c == u' ' || (c >= u'a' && c <= u'z'); };
    return FindText(value, kSign) != value.npos ||
           std::none_of(value.begin(), value.end(), breaksTokens);
}

// Takes every %CURSOR_POS% out of the text; the first one counts.
void TakeCursorMarks(std::u16string& text, MacroOutcome& outcome) {
    const std::size_t mark = FindText(text, kMacroCursorPos);
    if (mark == text.npos) {
        return;
    }
    ReplaceAll(text, kMacroCursorPos, u"");
    outcome.CursorAt = mark;
    outcome.CursorBack = CursorSteps(std::u16string_view(text).substr(mark));
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
        for (std::size_t position = 0; position < list_.size(); ++position) {
            positions_.emplace(list_[position], position);
        }
    }
    return list_;
}

MacroOutcome MacroEngine::ExpandMacros(std::u16string& text, const MacroInput& input) const {
    MacroOutcome outcome;
    if (FindText(text, kSign) == text.npos) {
        return outcome;
    }
    MacroInput prepared = input;
    std::u16string trimmed;
    std::vector<std::size_t> waiting = TokensIn(text, 0);
    const bool trims = std::any_of(waiting.begin(), waiting.end(), [this](std::size_t position) {
        return list_[position] == kMacroTrimProtocols;
    });
    if (trims && ReplaceAll(text, kMacroTrimProtocols, u"") > 0) {
        trimmed = TrimProtocols(input.SelText);
        prepared.SelText = trimmed;
    }
    const std::size_t length = text.size();
    outcome.Layout = StripLayoutMacros(text);
    if (trims || text.size() != length) {
        waiting = TokensIn(text, 0);
    }
    outcome.Replaced = ReplaceTokens(text, prepared, std::move(waiting));
    TakeCursorMarks(text, outcome);
    return outcome;
}

MacroOutcome MacroEngine::ExpandMacrosPlain(std::u16string& text) const {
    return ExpandMacros(text,
                        {.SelText = {}, .ClipboardText = {}, .Language = locale_.UserDefault()});
}

Lcid MacroEngine::StripLayoutMacros(std::u16string& text) const {
    return vbr::StripLayoutMacros(text, layouts_, locale_);
}

std::vector<std::size_t> MacroEngine::TokensIn(std::u16string_view text, std::size_t from) const {
    GetMacroList();
    std::vector<std::size_t> found;
    found.reserve(kUsualTokens);
    // No token has a percent sign inside, so each stands between two neighbouring signs.
    std::size_t open = FindText(text, kSign);
    while (open != text.npos) {
        const std::size_t close = FindText(text, kSign, open + 1);
        if (close == text.npos) {
            break;
        }
        if (text[open + 1] >= u'A' && text[open + 1] <= u'Z') {
            const auto token = positions_.find(text.substr(open, close + 1 - open));
            if (token != positions_.end() && token->second >= from) {
                found.push_back(token->second);
            }
        }
        open = close;
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::size_t MacroEngine::ReplaceTokens(std::u16string& text, const MacroInput& input,
                                       std::vector<std::size_t> waiting) const {
    std::size_t replaced = 0;
    for (std::size_t next = 0; next < waiting.size();) {
        const std::size_t position = waiting[next++];
        const std::u16string& token = list_[position];
        if (token == kMacroCursorPos || token == kMacroTrimProtocols) {
            continue;
        }
        const std::u16string value = MacroValue(token, input);
        const std::size_t count =
            ReplaceAll(text, token, input.MarksValues ? MarkedValue(value) : value);
        // One that shared a percent sign with the token before is gone.
        if (count > 0 && token == kMacroUrlFromClipboard) {
            log_.Write(Concat(u"PreReplaced MC_URL_FROMCLIPBOARD command=[", WithoutMarks(text),
                              u"] result=[", value, u"]"));
        }
        // A layout token that a value brought in asks for nothing.
        replaced += token.starts_with(kMacroLayoutPrefix) ? 0 : count;
        if (MayMakeToken(value)) {
            waiting = TokensIn(text, position + 1);
            next = 0;
        }
    }
    return replaced;
}

}  // namespace vbr

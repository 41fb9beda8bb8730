// SPDX-License-Identifier: MIT
#include "macros/rich_macros.h"

#include "macros/layout_macros.h"
#include "macros/macro_tokens.h"
#include "platform/rich_source.h"

namespace vbr {

std::u16string RichToPlainText(std::u16string_view source, RichTextEngine& engine) {
    return engine.LoadSource(source) ? engine.PlainText() : std::u16string();
}

MacroOutcome RichMacros::ExpandMacrosRich(std::u16string& source, const MacroInput& input) const {
    if (!engine_.LoadSource(source) || !engine_.Find(u"%")) {
        return {};
    }
    const Removed removed = RemoveLayoutMacros();
    MacroOutcome outcome{.Replaced = removed.Count, .CursorBack = 0, .Layout = removed.Layout};
    for (const std::u16string& token : macros_.GetMacroList()) {
        if (token != kMacroCursorPos) {
            outcome.Replaced +=
                ReplaceToken(token, [&] { return macros_.MacroValue(token, input); });
        }
    }
    const auto cursor = engine_.Find(kMacroCursorPos);
    const bool hasCursor = cursor.has_value();
    if (hasCursor) {
        ReplaceAt(*cursor, kMacroCursorPos, {});
        outcome.CursorBack = engine_.Length() - *cursor;
        ++outcome.Replaced;
    }
    if (outcome.Replaced == 0) {
        return {};
    }
    auto expanded = engine_.SaveSource();
    if (!expanded) {
        return {};
    }
    // The engine writes a mark for the last paragraph, whether or not the source had it, and
    // doesn't count it as a step of the cursor.
    const bool keepsMark = EndsInParagraph(source) && !hasCursor;
    source = keepsMark ? *std::move(expanded) : WithoutLastParagraph(*expanded);
    return outcome;
}

Lcid RichMacros::StripLayoutMacrosRich(std::u16string_view source) const {
    return engine_.LoadSource(source) ? RemoveLayoutMacros().Layout : 0;
}

RichMacros::Removed RichMacros::RemoveLayoutMacros() const {
    Removed removed;
    if (!engine_.Find(kMacroLayoutPrefix)) {
        return removed;
    }
    for (const auto& [token, language] : InstalledLayoutMacros(layouts_, locale_)) {
        if (const std::size_t count = ReplaceToken(token, [] { return std::u16string(); })) {
            removed.Count += count;
            removed.Layout = language;
        }
    }
    return removed;
}

std::size_t RichMacros::ReplaceToken(std::u16string_view token,
                                     const std::function<std::u16string()>& value) const {
    auto position = engine_.Find(token);
    if (!position) {
        return 0;
    }
    const std::u16string with = value();
    std::size_t count = 0;
    std::size_t length = engine_.Length();
    while (position) {
        ReplaceAt(*position, token, with);
        ++count;
        // The engine may have counted a line end as one unit. A value that holds its own token
        // must not be looked into, or this would never end.
        const std::size_t newLength = engine_.Length();
        const std::size_t behind = *position + token.size() + newLength - length;
        length = newLength;
        position = engine_.Find(token, behind);
    }
    return count;
}

void RichMacros::ReplaceAt(std::size_t position, std::u16string_view token,
                           std::u16string_view with) const {
    const RichRange found{position, position + token.size()};
    if (position > 0) {
        if (const auto color = engine_.ColorOf({position - 1, position})) {
            engine_.SetColor(found, *color);
        }
    }
    engine_.ReplaceRange(found, with);
}

}  // namespace vbr

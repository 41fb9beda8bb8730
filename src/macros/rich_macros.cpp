// SPDX-License-Identifier: MIT
#include "macros/rich_macros.h"

#include <algorithm>

#include "base/cursor_steps.h"
#include "base/text.h"
#include "macros/layout_macros.h"
#include "macros/macro_tokens.h"
#include "platform/rich_source.h"

namespace vbr {
namespace {

// The brace of both tokens gets the backslash that makes it a character.
std::u16string EscapePrompts(std::u16string_view source) {
    std::u16string escaped;
    std::size_t at = 0;
    for (const SegmentPlace& segment : FindSegments(source)) {
        if (segment.Kind == SegmentKind::Prompt) {
            const std::size_t open = segment.Begin + kPromptOpen.size() - 1;
            const std::size_t close = segment.End - kPromptClose.size();
            escaped.append(source.substr(at, open - at)).append(u"\\");
            escaped.append(source.substr(open, close - open)).append(u"\\");
            at = close;
        }
    }
    return escaped.append(source.substr(at));
}

// The engine's line ends as a text has them.
std::u16string WithLineEnds(std::u16string_view text) {
    std::u16string lines(text);
    ReplaceAll(lines, u"\v", u"\r");
    ReplaceAll(lines, u"\r", u"\r\n");
    return lines;
}

}  // namespace

bool LoadRichPhrase(std::u16string_view source, RichTextEngine& engine) {
    return FindNoCase(source, kPromptOpen) == source.npos
               ? engine.LoadSource(source)
               : engine.LoadSource(EscapePrompts(source));
}

std::u16string RichToPlainText(std::u16string_view source, RichTextEngine& engine) {
    return LoadRichPhrase(source, engine) ? engine.PlainText() : ReadRichText(source, engine);
}

std::u16string RichFailure(std::u16string_view title) {
    return Concat(u"Formatted text [", title, u"] can't be read; its plain text takes its place");
}

std::optional<std::vector<RichSegment>> RichMacros::ExpandSegments(std::u16string_view source,
                                                                   const MacroInput& input) const {
    const auto pieces = LoadExpanded(source, input);
    if (!pieces) {
        return std::nullopt;
    }
    if (pieces->size() == 1 && pieces->front().Kind == SegmentKind::Text &&
        !pieces->front().IsChanged) {
        return std::vector<RichSegment>{{SegmentKind::Text, std::u16string(source)}};
    }
    std::vector<RichSegment> segments;
    for (const Piece& piece : *pieces) {
        if (piece.Kind == SegmentKind::Prompt) {
            segments.push_back({SegmentKind::Prompt, piece.Default});
            continue;
        }
        const bool isLast = &piece == &pieces->back();
        const bool keepsMark = isLast && !piece.CursorBack && EndsInParagraph(source);
        auto saved = Save(piece.Range, keepsMark);
        if (!saved) {
            return std::nullopt;
        }
        segments.push_back({SegmentKind::Text, *std::move(saved), piece.CursorBack});
    }
    return segments;
}

std::optional<std::u16string> RichMacros::ExpandMacrosRich(std::u16string_view source,
                                                           const MacroInput& input) const {
    const auto pieces = LoadExpanded(source, input);
    if (!pieces) {
        return std::nullopt;
    }
    bool isChanged = false;
    bool hasCursor = false;
    for (auto piece = pieces->rbegin(); piece != pieces->rend(); ++piece) {
        const bool isPrompt = piece->Kind == SegmentKind::Prompt;
        if (isPrompt) {
            engine_.ReplaceRange(piece->Range, piece->Default);
        }
        isChanged = isChanged || isPrompt || piece->IsChanged;
        hasCursor = hasCursor || piece->CursorBack;
    }
    return isChanged ? Save({0, engine_.Length()}, EndsInParagraph(source) && !hasCursor)
                     : std::optional(std::u16string(source));
}

// The document's segments; one that the engine doesn't show unit by unit is a single text.
std::vector<RichMacros::Piece> RichMacros::PiecesOfDocument() const {
    const auto text = engine_.Text();
    if (!text) {
        return {{.Range = {0, engine_.Length()}}};
    }
    std::vector<Piece> pieces;
    for (const SegmentPlace& segment : FindSegments(*text)) {
        Piece piece{.Kind = segment.Kind, .Range = {segment.Begin, segment.End}};
        if (segment.Kind == SegmentKind::Prompt) {
            piece.Default = WithLineEnds(TextOf(segment, *text));
        }
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

std::optional<std::vector<RichMacros::Piece>> RichMacros::LoadExpanded(
    std::u16string_view source, const MacroInput& input) const {
    if (!LoadRichPhrase(source, engine_)) {
        return std::nullopt;
    }
    std::vector<Piece> pieces = PiecesOfDocument();
    std::size_t grown = 0;
    for (Piece& piece : pieces) {
        piece.Range.Start += grown;
        piece.Range.End += grown;
        if (piece.Kind == SegmentKind::Text) {
            const std::size_t end = piece.Range.End;
            Expand(piece, input);
            grown += piece.Range.End - end;
        }
    }
    return pieces;
}

void RichMacros::Expand(Piece& piece, const MacroInput& input) const {
    if (!engine_.Find(u"%", piece.Range.Start, piece.Range.End)) {
        return;
    }
    RemoveLayoutMacros(piece);
    for (const std::u16string& token : macros_.GetMacroList()) {
        if (token != kMacroCursorPos) {
            Replace(
                token, [&] { return macros_.MacroValue(token, input); }, piece);
        }
    }
    TakeCursorMarks(piece);
}

void RichMacros::RemoveLayoutMacros(Piece& piece) const {
    if (!engine_.Find(kMacroLayoutPrefix, piece.Range.Start, piece.Range.End)) {
        return;
    }
    for (const auto& [token, language] : InstalledLayoutMacros(layouts_, locale_)) {
        Replace(
            token, [] { return std::u16string(); }, piece);
    }
}

void RichMacros::TakeCursorMarks(Piece& piece) const {
    const auto mark = engine_.Find(kMacroCursorPos, piece.Range.Start, piece.Range.End);
    if (!mark) {
        return;
    }
    Replace(
        kMacroCursorPos, [] { return std::u16string(); }, piece);
    const std::size_t units = piece.Range.End - *mark;
    const auto text = engine_.Text();
    piece.CursorBack = text ? CursorSteps(std::u16string_view(*text).substr(*mark, units)) : units;
}

void RichMacros::Replace(std::u16string_view token, const Value& value, Piece& piece) const {
    auto position = engine_.Find(token, piece.Range.Start, piece.Range.End);
    if (!position) {
        return;
    }
    const std::u16string with = value();
    std::size_t length = engine_.Length();
    while (position) {
        ReplaceAt(*position, token, with, piece);
        // The engine may have counted a line end as one unit. A value that holds its own token
        // must not be looked into, or this would never end.
        const std::size_t newLength = engine_.Length();
        const std::size_t behind = *position + token.size() + newLength - length;
        piece.Range.End += newLength - length;
        length = newLength;
        position = engine_.Find(token, behind, piece.Range.End);
    }
    piece.IsChanged = true;
}

void RichMacros::ReplaceAt(std::size_t position, std::u16string_view token,
                           std::u16string_view with, const Piece& piece) const {
    const RichRange found{position, position + token.size()};
    if (position > piece.Range.Start) {
        if (const auto color = engine_.ColorOf({position - 1, position})) {
            engine_.SetColor(found, *color);
        }
    }
    engine_.ReplaceRange(found, with);
}

// The engine has a mark for the last paragraph, whether or not the source had it, and doesn't count
// it as a step of the cursor.
std::optional<std::u16string> RichMacros::Save(RichRange range, bool withLastMark) const {
    if (withLastMark) {
        return engine_.SaveRange({range.Start, kDocumentEnd});
    }
    auto saved = engine_.SaveRange(range);
    const bool endsInLine =
        range.Start < range.End && engine_.Find(u"\r", range.End - 1, range.End).has_value();
    return saved && !endsInLine ? WithoutLastParagraph(*saved) : saved;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "macros/macro_engine.h"
#include "macros/prompt_split.h"
#include "platform/rich_reader.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// Loads a source with its prompts. Braces of a prompt that stand bare in the source count as its
// text, not as a group's.
bool LoadRichPhrase(std::u16string_view source, RichTextEngine& engine);

// The plain text of a source, lines ending in CR LF. What the engine can't load is read as well as
// it can be, and what is no source is text by itself.
std::u16string RichToPlainText(std::u16string_view source, RichTextEngine& engine);

// What the log says of a phrase whose source the engine refuses; the title may be empty.
std::u16string RichFailure(std::u16string_view title);

// A segment of a formatted phrase as it goes out.
struct RichSegment {
    SegmentKind Kind = SegmentKind::Text;
    std::u16string Text;  // a source of its own; the default answer of a prompt as plain text
    std::optional<std::size_t> CursorBack;  // cursor steps from the end back to %CURSOR_POS%

    bool operator==(const RichSegment&) const = default;
};

// The macros in the visible text of Rich Text Format sources, replaced within the engine's
// document. A value takes the colour of the character before its token, and the selection keeps its
// protocols. Belongs to the main thread.
class RichMacros {
  public:
    RichMacros(const MacroEngine& macros, const KeyboardLayouts& layouts, const Locale& locale,
               RichTextEngine& engine)
        : macros_(macros), layouts_(layouts), locale_(locale), engine_(engine) {}

    // The source's segments in order, each text expanded by itself and with its own format. A
    // source with nothing to split or replace stays as it is. Nothing when the engine fails.
    std::optional<std::vector<RichSegment>> ExpandSegments(std::u16string_view source,
                                                           const MacroInput& input) const;

    // The whole source expanded, each prompt's default answer in its place. Nothing when the engine
    // fails.
    std::optional<std::u16string> ExpandMacrosRich(std::u16string_view source,
                                                   const MacroInput& input) const;

    // The text of a source that the engine fails on, with its macros.
    std::u16string ReadableText(std::u16string_view source) const {
        return ReadRichText(source, engine_);
    }

  private:
    // A segment in the engine's document.
    struct Piece {
        SegmentKind Kind = SegmentKind::Text;
        RichRange Range;
        std::u16string Default;  // answer of a prompt
        bool IsChanged = false;
        std::optional<std::size_t> CursorBack;
    };
    using Value = std::function<std::u16string()>;

    std::vector<Piece> PiecesOfDocument() const;
    std::optional<std::vector<Piece>> LoadExpanded(std::u16string_view source,
                                                   const MacroInput& input) const;
    void Expand(Piece& piece, const MacroInput& input) const;
    void RemoveLayoutMacros(Piece& piece) const;
    void TakeCursorMarks(Piece& piece) const;
    void Replace(std::u16string_view token, const Value& value, Piece& piece) const;
    void ReplaceAt(std::size_t position, std::u16string_view token, std::u16string_view with,
                   const Piece& piece) const;
    std::optional<std::u16string> Save(RichRange range, bool withLastMark) const;

    const MacroEngine& macros_;
    const KeyboardLayouts& layouts_;
    const Locale& locale_;
    RichTextEngine& engine_;
};

}  // namespace vbr

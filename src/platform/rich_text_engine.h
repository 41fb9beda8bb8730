// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// A stretch of the engine's text. Units are those of the engine: UTF-16, a paragraph's end is one
// CR. `End` is behind the last unit.
struct RichRange {
    std::size_t Start = 0;
    std::size_t End = 0;
};

// An end behind that of the last paragraph, which is no part of the text.
inline constexpr auto kDocumentEnd = static_cast<std::size_t>(-1);

// The colour of a text: the reader's own, or red, green and blue from the low byte up.
struct TextColor {
    bool Automatic = true;
    std::uint32_t Rgb = 0;

    bool operator==(const TextColor&) const = default;
};

enum class LetterCase { Lower, Upper };

// Holds one document of formatted text at a time. A source is Rich Text Format as a string of 8-bit
// units; see platform/rich_source.h for units above these. Belongs to the main thread.
class RichTextEngine {
  public:
    virtual ~RichTextEngine() = default;

    // Replaces the document. False when the source can't be loaded; the document is empty then.
    virtual bool LoadSource(std::u16string_view source) = 0;
    // The same; an engine that can turns letters into that case as they come in.
    virtual bool LoadSourceInCase(std::u16string_view source, LetterCase letterCase) = 0;
    // The document as a source of ASCII units; nothing when it can't be read back.
    virtual std::optional<std::u16string> SaveSource() const = 0;
    // A range of it as a source of its own, with its format; nothing when it can't be read back.
    virtual std::optional<std::u16string> SaveRange(RichRange range) const = 0;

    // The document's text; a line ends in CR LF. Empty when it can't be read back.
    virtual std::u16string PlainText() const = 0;
    // The text in the engine's units; nothing when it doesn't show them all.
    virtual std::optional<std::u16string> Text() const = 0;
    // The number of units of the engine's text.
    virtual std::size_t Length() const = 0;

    // The position of the first occurrence in exact case that begins at or behind `from` and ends
    // at or before `to`.
    virtual std::optional<std::size_t> Find(std::u16string_view what, std::size_t from = 0,
                                            std::size_t to = kDocumentEnd) const = 0;
    // Puts a text in the place of a range, in the format of the range's start.
    virtual void ReplaceRange(RichRange range, std::u16string_view with) = 0;

    // Nothing when the range has more than one colour.
    virtual std::optional<TextColor> ColorOf(RichRange range) const = 0;
    virtual void SetColor(RichRange range, TextColor color) = 0;
    // Makes all text black and takes bold, italic, underline, strikeout, protection and links away.
    virtual void ClearEffects() = 0;
    // The end of the longest stretch of one format, within the range and from its start.
    virtual std::size_t SameFormatEnd(RichRange range) const = 0;

    // Bytes of a source as text: those of a code page of Windows, or of the system's own when it
    // has no such page.
    virtual std::u16string FromCodePage(std::string_view bytes, std::uint32_t codePage) const = 0;
};

}  // namespace vbr

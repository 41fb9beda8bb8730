// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "history/history_item.h"
#include "platform/ansi_text.h"
#include "platform/log.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// The bytes of an RTF item as a source of the engine.
std::u16string RichSourceOf(const CCHItem& item);

// As much of an item's text as is ever shown of it at once.
struct TextPreview {
    std::u16string Start;
    std::u16string End;                // of a text that is too long to be there whole
    std::optional<std::size_t> Units;  // of the whole text; nothing where finding out takes long
    std::optional<std::size_t> Lines;
};

// Texts of history items. The plain text of an RTF item is kept for the next call, since the engine
// has to read the whole source for it. Belongs to the main thread.
class ItemTexts {
  public:
    ItemTexts(const AnsiText& ansi, RichTextEngine& engine, Log& log)
        : ansi_(ansi), engine_(engine), log_(log) {}

    // The item's text, for other data the name of its kind. With `cutAtLine` the first line; with
    // `maxChars` not 0 at most so many UTF-16 units. An ellipsis follows what was cut.
    std::u16string ItemText(const CCHItem& item, std::size_t maxChars, bool cutAtLine);
    std::u16string MenuCaptionText(const CCHItem& item) { return ItemText(item, 50, true); }
    std::u16string FullText(const CCHItem& item) { return ItemText(item, 0, false); }

    // Empty for what isn't text. Takes the same short time for items of any size.
    TextPreview Preview(const CCHItem& item);

    // What the item is as CF_UNICODETEXT; empty for what isn't text.
    std::u16string PlainText(const CCHItem& item);
    // Empty, with a line in the log, when the engine can't load the source.
    std::u16string PlainTextOfRtf(const CCHItem& item);
    // The block of an HTML item as text, header and all.
    static std::u16string HtmlText(const CCHItem& item);

  private:
    using Content = std::pair<std::uint64_t, std::uint32_t>;  // hash and size

    // The first `units` of the text at most.
    std::u16string StartOf(const CCHItem& item, std::size_t units);

    const AnsiText& ansi_;
    RichTextEngine& engine_;
    Log& log_;
    std::map<Content, std::u16string> richTexts_;
    std::size_t richUnits_ = 0;  // in all of them
};

}  // namespace vbr

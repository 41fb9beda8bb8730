// SPDX-License-Identifier: MIT
#include "history/item_text.h"

#include <algorithm>

#include "base/text.h"
#include "platform/rich_reader.h"

namespace vbr {
namespace {

constexpr std::u16string_view kLineEnds = u"\r\n\t";
constexpr std::u16string_view kEllipsis = u"…";
constexpr std::u16string_view kKelpNotesName = u"Kelp Notes Document Data";
constexpr std::u16string_view kBitmapName = u"Bitmap";
constexpr std::u16string_view kUnknownName = u"O-o-ops! Naxer!";

// A caption looks at so many units, a preview shows so many from either end of a long text.
constexpr std::size_t kCaptionUnits = 4096;
constexpr std::size_t kPreviewUnits = 8192;
// Longer texts are not read through for a preview.
constexpr std::size_t kCountedUnits = 1U << 20;
// Of larger sources, in bytes, only the beginning is read for a preview: the engine takes seconds.
constexpr std::size_t kMaxLoaded = 1U << 20;
constexpr std::size_t kRichBeginning = 64U << 10;

// So many UTF-16 units of plain texts are kept, 8 MiB.
constexpr std::size_t kMaxKeptUnits = 4U << 20;
constexpr std::size_t kUnitsOfEntry = 64;  // what one costs beside its text

std::u16string Shorten(std::u16string_view text, std::size_t maxChars, bool cutAtLine) {
    std::u16string_view kept = text;
    if (cutAtLine) {
        kept = text = TrimLeft(text, kLineEnds);
        kept = kept.substr(0, kept.find_first_of(kLineEnds));
    }
    if (maxChars != 0) {
        kept = CutUnits(kept, maxChars);
    }
    return Concat(kept, kept.size() < text.size() ? kEllipsis : std::u16string_view());
}

std::size_t CountLines(std::u16string_view text) {
    std::size_t lines = 1;
    for (std::size_t at = 0; (at = text.find_first_of(u"\r\n", at)) != text.npos; ++lines) {
        at += text.substr(at, 2) == u"\r\n" ? 2 : 1;
    }
    return lines;
}

std::u16string SourceOf(std::string_view bytes) {
    std::u16string source(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), source.begin(), [](char byte) {
        return static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
    return source;
}

// The text's bytes, but no more than so many.
std::string_view BytesOf(const CCHItem& item, std::size_t most) {
    const std::string_view all(reinterpret_cast<const char*>(item.Data().data()),
                               std::min(item.Data().size(), most));
    return all.substr(0, all.find('\0'));
}

}  // namespace

std::u16string RichSourceOf(const CCHItem& item) {
    return SourceOf(item.ByteText());
}

std::u16string ItemTexts::ItemText(const CCHItem& item, std::size_t maxChars, bool cutAtLine) {
    // With room for what is left out at the start.
    const std::size_t units = maxChars == 0 ? std::u16string::npos : maxChars + kCaptionUnits;
    switch (item.format) {
        case CHF_ANSI_TEXT:
        case CHF_RTF:
            return Shorten(StartOf(item, units), maxChars, cutAtLine);
        case CHF_UNICODE_TEXT:
            return Shorten(item.WideText().substr(0, units), maxChars, cutAtLine);
        case CHF_KELPNOTES:
            return Shorten(kKelpNotesName, maxChars, cutAtLine);
        case CHF_BITMAP:
            return Shorten(kBitmapName, maxChars, cutAtLine);
        default:
            return std::u16string(kUnknownName);
    }
}

std::u16string ItemTexts::StartOf(const CCHItem& item, std::size_t units) {
    if (item.format == CHF_UNICODE_TEXT) {
        return std::u16string(item.WideText().substr(0, units));
    }
    if (item.format == CHF_ANSI_TEXT) {
        return ansi_.FromAnsi(BytesOf(item, units));
    }
    return units == std::u16string::npos || item.Size() <= kMaxLoaded
               ? PlainTextOfRtf(item)
               : ReadRichText(SourceOf(BytesOf(item, kRichBeginning)), engine_);
}

TextPreview ItemTexts::Preview(const CCHItem& item) {
    const bool isText = item.format == CHF_UNICODE_TEXT || item.format == CHF_ANSI_TEXT;
    if (!isText && item.format != CHF_RTF) {
        return {};
    }
    TextPreview preview{.Start = {}, .End = {}, .Units = std::nullopt, .Lines = std::nullopt};
    // A text in UTF-16 is looked at where it lies.
    const std::u16string made =
        item.format == CHF_UNICODE_TEXT ? std::u16string() : StartOf(item, kCountedUnits);
    const std::u16string_view text = item.format == CHF_UNICODE_TEXT ? item.WideText() : made;
    const bool isWhole = item.format == CHF_UNICODE_TEXT || item.Size() <= kMaxLoaded;
    if (isWhole) {
        preview.Units = text.size();
    }
    if (isWhole && text.size() <= kCountedUnits) {
        preview.Lines = CountLines(text);
    }
    preview.Start = text.substr(0, 2 * kPreviewUnits);
    if (!isWhole || text.size() > preview.Start.size()) {
        preview.Start = CutUnits(text, kPreviewUnits);
        // Of what was read in part the end isn't known.
        preview.End = isWhole ? text.substr(text.size() - kPreviewUnits) : std::u16string_view();
    }
    return preview;
}

std::u16string ItemTexts::PlainText(const CCHItem& item) {
    switch (item.format) {
        case CHF_ANSI_TEXT:
        case CHF_UNICODE_TEXT:
        case CHF_RTF:
            return FullText(item);
        default:
            return {};
    }
}

std::u16string ItemTexts::PlainTextOfRtf(const CCHItem& item) {
    const Content content(item.ContentHash(), item.Size());
    if (const auto kept = richTexts_.find(content); kept != richTexts_.end()) {
        return kept->second;
    }
    std::u16string text;
    if (engine_.LoadSource(RichSourceOf(item))) {
        text = engine_.PlainText();
    } else {
        log_.LogError(Concat(u"Cannot read the text of formatted text of ", item.Size(),
                             u" bytes in the clipboard history"));
    }
    const std::size_t units = text.size() + kUnitsOfEntry;
    if (item.Size() > kMaxLoaded) {
        return text;
    }
    if (richUnits_ + units > kMaxKeptUnits) {
        richTexts_.clear();
        richUnits_ = 0;
    }
    richUnits_ += units;
    return richTexts_.insert_or_assign(content, std::move(text)).first->second;
}

std::u16string ItemTexts::HtmlText(const CCHItem& item) {
    return Utf8ToUtf16(item.ByteText());
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "history/item_text.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kLineEnds = u"\r\n\t";
constexpr std::u16string_view kEllipsis = u"…";
constexpr std::u16string_view kKelpNotesName = u"Kelp Notes Document Data";
constexpr std::u16string_view kBitmapName = u"Bitmap";
constexpr std::u16string_view kUnknownName = u"O-o-ops! Naxer!";

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

}  // namespace

std::u16string RichSourceOf(const CCHItem& item) {
    const std::string_view bytes = item.ByteText();
    std::u16string source(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), source.begin(), [](char byte) {
        return static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
    return source;
}

std::u16string ItemTexts::ItemText(const CCHItem& item, std::size_t maxChars, bool cutAtLine) {
    switch (item.format) {
        case CHF_ANSI_TEXT:
            return Shorten(ansi_.FromAnsi(item.ByteText()), maxChars, cutAtLine);
        case CHF_UNICODE_TEXT:
            return Shorten(item.WideText(), maxChars, cutAtLine);
        case CHF_RTF:
            return Shorten(PlainTextOfRtf(item), maxChars, cutAtLine);
        case CHF_KELPNOTES:
            return Shorten(kKelpNotesName, maxChars, cutAtLine);
        case CHF_BITMAP:
            return Shorten(kBitmapName, maxChars, cutAtLine);
        default:
            return std::u16string(kUnknownName);
    }
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

const std::u16string& ItemTexts::PlainTextOfRtf(const CCHItem& item) {
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

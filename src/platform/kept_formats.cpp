// SPDX-License-Identifier: MIT
#include "platform/kept_formats.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace vbr {
namespace {

// Formats of one family become each other; the higher rank keeps what the lower one has. A bitmap
// of the device has nothing that the others could lack.
struct AutomaticFormat {
    std::uint32_t Format;
    int Family;
    int Rank;
};
constexpr AutomaticFormat kAutomatic[] = {
    {kClipText, 1, 2}, {kClipOemText, 1, 1}, {kClipUnicodeText, 1, 3}, {kClipBitmap, 2, 1},
    {kClipDib, 2, 2},  {kClipDibV5, 2, 3},   {kClipMetafile, 3, 1},    {kClipEnhMetafile, 3, 2}};

// They stand for an object in the owner's process.
constexpr std::u16string_view kDeadAlone[] = {u"DataObject", u"Ole Private Data"};
// The content of files that only the owner can give, in streams behind the clipboard.
constexpr std::u16string_view kOwnersFiles = u"FileContents";

const AutomaticFormat* FindAutomatic(std::uint32_t format) {
    const auto* const found = std::ranges::find(kAutomatic, format, &AutomaticFormat::Format);
    return found == std::end(kAutomatic) ? nullptr : found;
}

bool IsAutomatic(std::uint32_t format) {
    return format == kClipLocale || format == kClipPalette || FindAutomatic(format) != nullptr;
}

// Whether the system makes the format at `at` from one before it that has at least as much.
bool IsMade(const std::vector<std::uint32_t>& formats, std::size_t at) {
    const AutomaticFormat* made = FindAutomatic(formats[at]);
    bool isFirst = true;
    for (std::size_t i = 0; made && i < at; ++i) {
        const AutomaticFormat* from = FindAutomatic(formats[i]);
        if (!from || from->Family != made->Family) {
            continue;
        }
        if (from->Rank > made->Rank || (isFirst && from->Format == kClipBitmap)) {
            return true;
        }
        isFirst = false;
    }
    return false;
}

}  // namespace

std::optional<std::vector<std::uint32_t>> KeptFormats(const ClipboardSession& session) {
    const std::vector<std::uint32_t> formats = session.Formats();
    // What the system makes stands behind all that the owner gave.
    std::size_t given = formats.size();
    while (given > 0 && IsAutomatic(formats[given - 1])) {
        --given;
    }
    std::vector<std::uint32_t> kept;
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const std::u16string name = session.FormatName(formats[i]);
        if (EqualsNoCase(name, kOwnersFiles)) {
            return std::nullopt;
        }
        const bool isDead = std::ranges::any_of(
            kDeadAlone, [&name](std::u16string_view dead) { return EqualsNoCase(name, dead); });
        if (!isDead && (i < given || !IsMade(formats, i))) {
            kept.push_back(formats[i]);
        }
    }
    return kept;
}

}  // namespace vbr

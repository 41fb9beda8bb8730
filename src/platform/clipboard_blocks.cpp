// SPDX-License-Identifier: MIT
#include "platform/clipboard_blocks.h"

#include <algorithm>
#include <span>
#include <utility>

namespace vbr {
namespace {

template <typename Unit>
std::vector<std::byte> Terminated(std::basic_string_view<Unit> text) {
    std::vector<std::byte> bytes((text.size() + 1) * sizeof(Unit));
    std::ranges::copy(std::as_bytes(std::span(text)), bytes.begin());
    return bytes;
}

}  // namespace

std::vector<std::byte> TextBytes(std::u16string_view text) {
    return Terminated(text);
}

std::vector<std::byte> TextBytes(std::string_view text) {
    return Terminated(text);
}

ClipboardBlock StandardBlock(std::uint32_t format, std::vector<std::byte> bytes) {
    return {.Format = format, .Name = {}, .Bytes = std::move(bytes), .Object = {}};
}

ClipboardBlock NamedBlock(std::u16string_view name, std::vector<std::byte> bytes) {
    return {.Format = 0, .Name = std::u16string(name), .Bytes = std::move(bytes), .Object = {}};
}

std::vector<ClipboardBlock> PassingMarks() {
    std::vector<ClipboardBlock> marks;
    for (const std::u16string_view name :
         {kNotForMonitorsFormat, kNotForViewersFormat, kMayBeKeptFormat, kMayBeUploadedFormat}) {
        marks.push_back(NamedBlock(name, std::vector<std::byte>(sizeof(std::uint32_t))));
    }
    return marks;
}

ClipboardBlock LocaleBlock(Lcid locale) {
    const auto bytes = std::as_bytes(std::span(&locale, 1));
    return StandardBlock(kClipLocale, {bytes.begin(), bytes.end()});
}

}  // namespace vbr

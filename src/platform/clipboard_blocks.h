// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/locale.h"

namespace vbr {

// Standard clipboard formats that code treats by themselves.
inline constexpr std::uint32_t kClipText = 1;
inline constexpr std::uint32_t kClipBitmap = 2;
inline constexpr std::uint32_t kClipMetafile = 3;
inline constexpr std::uint32_t kClipOemText = 7;
inline constexpr std::uint32_t kClipDib = 8;
inline constexpr std::uint32_t kClipPalette = 9;
inline constexpr std::uint32_t kClipUnicodeText = 13;
inline constexpr std::uint32_t kClipEnhMetafile = 14;
inline constexpr std::uint32_t kClipLocale = 16;
inline constexpr std::uint32_t kClipDibV5 = 17;

// Names of registered formats.
inline constexpr std::u16string_view kRichTextFormat = u"Rich Text Format";
inline constexpr std::u16string_view kHtmlFormat = u"HTML Format";
inline constexpr std::u16string_view kKelpNotesFormat = u"Kelp Notes Format";
// With these an owner asks that nobody keeps the content, nor another machine gets it; the last two
// tell by their number.
inline constexpr std::u16string_view kNotForMonitorsFormat =
    u"ExcludeClipboardContentFromMonitorProcessing";
inline constexpr std::u16string_view kNotForViewersFormat = u"Clipboard Viewer Ignore";
inline constexpr std::u16string_view kMayBeKeptFormat = u"CanIncludeInClipboardHistory";
inline constexpr std::u16string_view kMayBeUploadedFormat = u"CanUploadToCloudClipboard";

// What the clipboard holds in one format.
struct ClipboardBlock {
    std::uint32_t Format = 0;
    std::u16string Name;           // of a registered format, whose number another session changes
    std::vector<std::byte> Bytes;  // a memory block, byte for byte
    std::shared_ptr<void> Object;  // a copy of a bitmap, metafile or palette, which is no memory
};

// Bytes of a text with its terminator.
std::vector<std::byte> TextBytes(std::u16string_view text);
std::vector<std::byte> TextBytes(std::string_view text);

ClipboardBlock StandardBlock(std::uint32_t format, std::vector<std::byte> bytes);
ClipboardBlock NamedBlock(std::u16string_view name, std::vector<std::byte> bytes);
// What content has with it that is there for an instant, or again: all the marks above.
std::vector<ClipboardBlock> PassingMarks();
// The language of the text beside it.
ClipboardBlock LocaleBlock(Lcid locale);

}  // namespace vbr

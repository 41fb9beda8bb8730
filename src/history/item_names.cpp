// SPDX-License-Identifier: MIT
#include "history/item_names.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "history/folder_names.h"
#include "history/item_info.h"
#include "platform/stamped_files.h"

namespace vbr {
namespace {

constexpr std::u16string_view kUnicodePrefix = u"Unicode_";

struct FormatExtension {
    ItemFormat Format;
    std::u16string_view Extension;
};

constexpr FormatExtension kExtensions[] = {
    {CHF_UNICODE_TEXT, u".txt"}, {CHF_ANSI_TEXT, u".txt"}, {CHF_RTF, u".rtf"},
    {CHF_KELPNOTES, u".knd"},    {CHF_HTML, u".html"},
};

}  // namespace

std::u16string_view ExtensionOf(ItemFormat format) {
    const auto* row =
        std::find_if(std::begin(kExtensions), std::end(kExtensions),
                     [format](const FormatExtension& known) { return known.Format == format; });
    return row == std::end(kExtensions) ? std::u16string_view() : row->Extension;
}

ItemFormat FormatOfFile(std::u16string_view name) {
    const auto* row = std::find_if(
        std::begin(kExtensions), std::end(kExtensions),
        [name](const FormatExtension& known) { return EndsWithNoCase(name, known.Extension); });
    const bool isPlain = row != std::end(kExtensions) && row->Format == CHF_UNICODE_TEXT &&
                         !StartsWithNoCase(name, kUnicodePrefix);
    if (isPlain) {
        return CHF_ANSI_TEXT;
    }
    return row == std::end(kExtensions) ? CHF_UNICODE_TEXT : row->Format;
}

bool IsNameOfOurs(std::u16string_view name) {
    return (StartsWithNoCase(name, kNewFilePrefix) && EndsWithNoCase(name, kNewFileSuffix)) ||
           IsNumberedName(name, kUnicodeStem, ExtensionOf(CHF_UNICODE_TEXT)) ||
           std::any_of(std::begin(kExtensions), std::end(kExtensions),
                       [name](const FormatExtension& known) {
                           return IsNumberedName(name, kDataStem, known.Extension);
                       });
}

bool IsInfoName(const FolderEntry& entry) {
    return entry.Kind == PathKind::File && EndsWithNoCase(entry.Name, kInfoExtension) &&
           IsPlainFileName(entry.Name);
}

bool IsDataName(std::u16string_view name) {
    return IsPlainFileName(name) && !EndsWithNoCase(name, kInfoExtension);
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "menu/clip_tip.h"

#include "base/text.h"
#include "platform/date_forms.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kMostOfText = 150;

std::u16string FormatName(ItemFormat format, const Strings& strings) {
    switch (format) {
        case CHF_ANSI_TEXT:
        case CHF_UNICODE_TEXT:
            return strings.LoadString(kStrPlainText);
        case CHF_RTF:
            return strings.LoadString(kStrFormattedText);
        case CHF_KELPNOTES:
            return strings.LoadString(kStrKelpNotesData);
        case CHF_BITMAP:
            return strings.LoadString(kStrBitmap);
        case CHF_HTML:
            return strings.LoadString(kStrHtmlCode);
    }
    return u"OOOPS! Unknow format";
}

std::u16string SourceOf(const CCHItem& item, const Strings& strings) {
    const std::u16string program = item.exeName.substr(item.exeName.find_last_of(u"\\/") + 1);
    if (program.empty() && item.wndName.empty()) {
        return strings.LoadString(kStrSourceUnknown);
    }
    const bool both = !program.empty() && !item.wndName.empty();
    return Concat(program, both ? u", " : u"", item.wndName);
}

}  // namespace

std::u16string ClipTip(const CCHItem& item, ItemTexts& texts, const Locale& locale,
                       const Strings& strings) {
    const TextPreview text = texts.Preview(item);
    std::u16string tip = strings.LoadString(kStrPutHistoryItemIntoClipboard);
    if (text.Units && !text.Start.empty()) {
        tip += Concat(u"\r\n", strings.LoadString(kStrTextLength), u": [", *text.Units, u"]");
    }
    tip +=
        Concat(u"\r\n", strings.LoadString(kStrDataFormat), u": ", FormatName(item.format, strings),
               u"\r\n", strings.LoadString(kStrCopiedFrom), u": ", SourceOf(item, strings), u", ",
               FormatDateTime(DateTimeMode::DateTime, locale, locale.UserDefault(), item.time));
    if (text.Start.empty()) {
        return Concat(tip, u"\r\n\r\n «  ", strings.LoadString(kStrSaveFromPaneHint));
    }
    const std::u16string_view trimmed = Trim(text.Start, u" \t\r\n");
    tip += Concat(u"\r\n\r\n", CutUnits(trimmed, kMostOfText));
    return trimmed.size() > kMostOfText ? tip + u"\r\n..." : tip;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "menu/history_region.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/text.h"
#include "macros/text_shortening.h"
#include "phrases/command_record.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kCaptionLimit = 60;
constexpr std::size_t kLinesShownWhole = 4;
constexpr std::size_t kLinesAtEitherEnd = 3;
constexpr std::size_t kMostOfALine = 2000;
constexpr std::u16string_view kLineEnds = u"\r\n";
constexpr std::u16string_view kEllipsis = u"…";

std::size_t ShownCount(std::size_t count, const HistoryRegionOptions& options) {
    return options.MaxItems > 0 ? std::min(count, static_cast<std::size_t>(options.MaxItems))
                                : count;
}

bool HasText(MenuHistoryKind kind) {
    return kind == MenuHistoryKind::Text || kind == MenuHistoryKind::FormattedText;
}

// Where the line that begins at `start` ends, and where the next one begins; npos for no next one.
std::pair<std::size_t, std::size_t> LineEnd(std::u16string_view text, std::size_t start) {
    const std::size_t end = text.find_first_of(kLineEnds, start);
    if (end == text.npos) {
        return {text.size(), text.npos};
    }
    return {end, end + (text.substr(end, 2) == u"\r\n" ? 2 : 1)};
}

std::u16string_view FirstLines(std::u16string_view text, std::size_t count) {
    std::size_t start = 0;
    for (std::size_t i = 1; i < count; ++i) {
        start = LineEnd(text, start).second;
    }
    return text.substr(0, LineEnd(text, start).first);
}

std::u16string_view LastLines(std::u16string_view text, std::size_t count) {
    std::size_t start = text.size();
    for (std::size_t i = 0; i < count && start > 0; ++i) {
        std::size_t end = i == 0 ? text.size() : start - 1;
        if (i > 0 && end > 0 && text[end] == u'\n' && text[end - 1] == u'\r') {
            --end;
        }
        const std::size_t before = text.substr(0, end).find_last_of(kLineEnds);
        start = before == text.npos ? 0 : before + 1;
    }
    return text.substr(start);
}

// The lines one below the other, long ones cut: at their end, or those at the text's end at their
// start.
std::u16string CutLines(std::u16string_view text, bool atStart) {
    std::u16string cut;
    for (std::size_t at = 0; at != text.npos;) {
        const auto [end, next] = LineEnd(text, at);
        const std::u16string_view line = text.substr(at, end - at);
        if (line.size() <= kMostOfALine) {
            cut += line;
        } else if (atStart) {
            cut += Concat(kEllipsis, line.substr(line.size() - kMostOfALine));
        } else {
            cut += Concat(CutUnits(line, kMostOfALine), kEllipsis);
        }
        cut += next == text.npos ? std::u16string_view() : text.substr(end, next - end);
        at = next;
    }
    return cut;
}

std::u16string Shown(const TextPreview& text) {
    if (!text.Lines && text.End.empty()) {
        return Concat(CutLines(FirstLines(text.Start, kLinesAtEitherEnd), false), u"\n\t………");
    }
    if (text.End.empty() && text.Lines <= kLinesShownWhole) {
        return CutLines(text.Start, false);
    }
    const std::u16string_view end = text.End.empty() ? text.Start : text.End;
    return Concat(CutLines(FirstLines(text.Start, kLinesAtEitherEnd), false), u"\n\t………\n",
                  CutLines(LastLines(end, kLinesAtEitherEnd), !text.End.empty()));
}

std::u16string MakeTip(const QueueHistory& history, std::size_t index, const Strings& strings) {
    const MenuHistoryKind kind = history.KindOf(index);
    const TextPreview text = HasText(kind) ? history.Preview(index) : TextPreview{.Units = 0};
    const std::u16string url = history.SourceUrl(index);
    const int kindName =
        kind == MenuHistoryKind::FormattedText ? kStrInsertFormattedText : kStrInsertPlainText;
    std::u16string tip;
    if (!url.empty()) {
        tip += Concat(u"\tURL: ", url, u"\n\n");
    }
    tip += Concat(strings.LoadString(kindName), u": ", strings.LoadString(kStrDataFromHistory));
    if (text.Units) {
        tip += Concat(u"\n\t", strings.LoadString(kStrChars), u": ", *text.Units);
    }
    if (text.Lines && !text.Start.empty()) {
        tip += Concat(u", ", strings.LoadString(kStrLines), u": ", *text.Lines);
    }
    if (!text.Start.empty()) {
        tip += Concat(u"\n\n", Shown(text));
    }
    return Concat(tip, u"\n\n        ", strings.LoadString(kStrRightClickForExtendedMenu));
}

PhraseMenuItem HistoryItem(QueueHistory& history, std::size_t index, bool withTip,
                           const Strings& strings) {
    PhraseMenuItem item;
    item.Info.ExpandedText = UncutHistoryCaption(history, index);
    item.Info.Label = MenuLabel(history.MenuCaption(index));
    item.Info.History = true;
    item.Info.Row = static_cast<std::int32_t>(index);
    const MenuHistoryKind kind = history.KindOf(index);
    item.Info.DataType = kind == MenuHistoryKind::FormattedText ? kDataTypeRtf : kDataTypeText;
    item.Info.Bitmap = kind == MenuHistoryKind::Bitmap;
    item.Info.Subject = {MenuSubjectKind::HistoryItem, history.IdOf(index)};
    item.Info.CommandId = kFirstHistoryItem + static_cast<std::uint32_t>(index);
    if (withTip) {
        item.Info.Tip = HistoryTip(history, index, strings);
    }
    return item;
}

PhraseMenu& AddHistoryPopup(PhraseMenu& menu, std::u16string_view label) {
    PhraseMenuItem& popup = AddPopup(menu, label);
    popup.Info.History = true;
    return popup.Children;
}

}  // namespace

std::u16string UncutHistoryCaption(QueueHistory& history, std::size_t index) {
    std::u16string& kept = history.MenuCaption(index);
    std::u16string uncut = kept.empty() ? history.MenuCaptionText(index) : kept;
    const std::u16string_view trimmed = Trim(uncut, u" \t\r\n");
    kept = trimmed.size() <= kCaptionLimit ? std::u16string(trimmed)
                                           : ShortenMiddle(trimmed, kCaptionLimit);
    return uncut;
}

const std::u16string& HistoryTip(QueueHistory& history, std::size_t index, const Strings& strings) {
    std::u16string& tip = history.MenuTip(index);
    if (tip.empty()) {
        tip = MakeTip(history, index, strings);
    }
    return tip;
}

std::u16string HistorySubMenuLabel(std::size_t count, const HistoryRegionOptions& options,
                                   const Strings& strings) {
    const std::u16string name = strings.LoadString(kStrClipboardHistory);
    return options.MaxItems > 0
               ? Concat(name, u" [", ShownCount(count, options), u"\\", count, u"]")
               : Concat(name, u" [", count, u"]");
}

void AddHistoryRegion(QueueHistory& history, const HistoryRegionOptions& options,
                      const Strings& strings, PhraseMenu& menu) {
    const std::size_t count = history.GetCount();
    if (count == 0) {
        return;
    }
    const std::size_t shown = ShownCount(count, options);
    if (!menu.empty()) {
        AddSeparator(menu, options.AsSubMenu ? std::u16string()
                                             : Concat(strings.LoadString(kStrClipboardHistory),
                                                      u" [", shown, u"/", count, u"]"));
    }
    // Each item stands in the menu as soon as it is made: a fault leaves those before it.
    PhraseMenu* items = &menu;
    if (options.AsSubMenu) {
        items = &AddHistoryPopup(menu, HistorySubMenuLabel(count, options, strings));
    }
    for (std::size_t i = 0; i < shown; ++i) {
        if (!options.AsSubMenu && i == kHistoryItemsInMain) {
            items = &AddHistoryPopup(menu, Concat(strings.LoadString(kStrMoreHistory), u" [", i + 1,
                                                  u" - ", shown, u"]"));
        }
        items->push_back(HistoryItem(history, i, options.WithTips, strings));
    }
}

}  // namespace vbr

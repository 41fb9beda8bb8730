// SPDX-License-Identifier: MIT
#include "shell/tray_history.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "platform/clipboard_text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kMostItems = kCmdLastTrayHistory - kCmdFirstTrayHistory + 1;

// A caption as a menu shows it unchanged.
std::u16string LabelOf(std::u16string caption) {
    ReplaceAll(caption, u"&", u"&&");
    ReplaceAll(caption, u"\t", u" ");
    return caption.starts_with(u' ') ? caption : Concat(u" ", caption);
}

}  // namespace

std::vector<MenuEntry> TrayHistory::Entries() {
    const std::size_t count = std::min(with_.Queue.GetCount(), kMostItems);
    const std::u16string onClipboard = count > 0 ? ReadUnicodeText(with_.Clipboard) : u"";
    std::vector<MenuEntry> entries(count);
    shown_.clear();
    MenuEntry* same = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        const CCHItem& item = *with_.Queue.GetItem(i);
        shown_.push_back(item.id);
        entries[i].Id = kCmdFirstTrayHistory + static_cast<int>(i);
        entries[i].Text = LabelOf(with_.Texts.MenuCaptionText(item));
        if (!onClipboard.empty() && IsText(item, onClipboard)) {
            same = &entries[i];
        }
    }
    if (same) {
        same->Default = true;
    }
    return entries;
}

bool TrayHistory::IsText(const CCHItem& item, std::u16string_view text) const {
    switch (item.format) {
        case CHF_UNICODE_TEXT:
            return item.WideText() == text;
        case CHF_ANSI_TEXT:
            return with_.Texts.PlainText(item) == text;
        default:
            return false;
    }
}

const CCHItem* TrayHistory::ItemOf(int command) const {
    if (command < kCmdFirstTrayHistory || command > kCmdLastTrayHistory) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(command - kCmdFirstTrayHistory);
    if (shown_.empty()) {
        return with_.Queue.GetItem(index);
    }
    return index < shown_.size() ? with_.Queue.FindById(shown_[index]) : nullptr;
}

bool TrayHistory::PutOnClipboard(int command) {
    const CCHItem* item = ItemOf(command);
    return item && with_.Copy(item->id);
}

}  // namespace vbr

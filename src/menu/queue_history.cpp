// SPDX-License-Identifier: MIT
#include "menu/queue_history.h"

#include "phrases/command_record.h"

namespace vbr {
namespace {

MenuHistoryKind KindOfItem(const CCHItem* item) {
    switch (item ? item->format : CHF_KELPNOTES) {
        case CHF_ANSI_TEXT:
        case CHF_UNICODE_TEXT:
            return MenuHistoryKind::Text;
        case CHF_RTF:
            return MenuHistoryKind::FormattedText;
        case CHF_BITMAP:
            return MenuHistoryKind::Bitmap;
        default:
            return MenuHistoryKind::Other;
    }
}

}  // namespace

MenuHistoryKind QueueHistory::KindOf(std::size_t index) const {
    return KindOfItem(queue_.GetItem(index));
}

std::uint32_t QueueHistory::IdOf(std::size_t index) const {
    const CCHItem* item = queue_.GetItem(index);
    return item ? item->id : 0;
}

std::u16string QueueHistory::MenuCaptionText(std::size_t index) const {
    const CCHItem* item = queue_.GetItem(index);
    return item ? texts_.MenuCaptionText(*item) : std::u16string();
}

TextPreview QueueHistory::Preview(std::size_t index) const {
    const CCHItem* item = queue_.GetItem(index);
    return item ? texts_.Preview(*item) : TextPreview();
}

std::u16string QueueHistory::SourceUrl(std::size_t index) const {
    const CCHItem* item = queue_.GetItem(index);
    return item ? item->sourceUrl : std::u16string();
}

std::u16string& QueueHistory::MenuCaption(std::size_t index) {
    const CCHItem* item = queue_.GetItem(index);
    return item ? item->menuCaption : outside_;
}

std::u16string& QueueHistory::MenuTip(std::size_t index) {
    const CCHItem* item = queue_.GetItem(index);
    return item ? item->menuTip : outside_;
}

std::optional<ClipText> QueueHistory::AsClip(std::uint32_t id) const {
    const CCHItem* item = queue_.FindById(id);
    switch (KindOfItem(item)) {
        case MenuHistoryKind::Text:
            return ClipText{kDataTypeText, texts_.FullText(*item)};
        case MenuHistoryKind::FormattedText:
            return ClipText{kDataTypeRtf, RichSourceOf(*item)};
        default:
            return std::nullopt;
    }
}

}  // namespace vbr

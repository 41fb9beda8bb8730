// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "history/history_queue.h"
#include "history/item_text.h"
#include "macros/command_delivery.h"

namespace vbr {

// Kinds of history items that the menu tells apart.
enum class MenuHistoryKind { Text, FormattedText, Bitmap, Other };

// The clipboard history as the menu sees it. Index 0 is the newest item; one outside gives empty
// answers. Belongs to the main thread.
class QueueHistory {
  public:
    QueueHistory(CCHQueue& queue, ItemTexts& texts) : queue_(queue), texts_(texts) {}

    std::size_t GetCount() const { return queue_.GetCount(); }
    MenuHistoryKind KindOf(std::size_t index) const;
    // The item's own id, which stays when the item moves.
    std::uint32_t IdOf(std::size_t index) const;
    // The first line, shortened; a name of the kind for an item without text.
    std::u16string MenuCaptionText(std::size_t index) const;
    // What a tip shows of the text; empty for an item that has none.
    TextPreview Preview(std::size_t index) const;
    std::u16string SourceUrl(std::size_t index) const;

    // What the menu made of the item before, kept with it; empty until it is made, and again when
    // the item or the language has changed.
    std::u16string& MenuCaption(std::size_t index);
    std::u16string& MenuTip(std::size_t index);

    // While it is locked no item is added, so that indices keep their items.
    void SetLocked(bool locked) { queue_.SetLocked(locked); }

    // The item with that id as it is delivered; nothing when it is gone, or neither text nor RTF.
    std::optional<ClipText> AsClip(std::uint32_t id) const;

  private:
    CCHQueue& queue_;
    ItemTexts& texts_;
    std::u16string outside_;  // for an index that has no item
};

}  // namespace vbr

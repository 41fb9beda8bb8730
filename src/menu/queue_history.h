// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "history/history_queue.h"
#include "history/item_text.h"
#include "macros/delivery_host.h"
#include "menu/menu_history.h"

namespace vbr {

// The program's clipboard history as the menu and a delivery of its items see it. Belongs to the
// main thread.
class QueueHistory : public MenuHistory {
  public:
    QueueHistory(CCHQueue& queue, ItemTexts& texts) : queue_(queue), texts_(texts) {}

    std::size_t GetCount() const override { return queue_.GetCount(); }
    MenuHistoryKind KindOf(std::size_t index) const override;
    std::u16string MenuCaptionText(std::size_t index) const override;
    std::u16string FullText(std::size_t index) const override;
    std::u16string SourceUrl(std::size_t index) const override;
    std::u16string& MenuCaption(std::size_t index) override;
    std::u16string& MenuTip(std::size_t index) override;
    void SetLocked(bool locked) override { queue_.SetLocked(locked); }

    // The item as a phrase; nothing when there is none, or when it is neither text nor RTF.
    std::optional<ClipText> AsPhrase(std::size_t index) const;

  private:
    CCHQueue& queue_;
    ItemTexts& texts_;
    std::u16string outside_;  // for an index that has no item
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "menu/menu_item_info.h"
#include "menu/queue_history.h"
#include "platform/strings.h"

namespace vbr {

// History items that stand in the main menu when they have no sub-menu; the others go below them.
inline constexpr std::size_t kHistoryItemsInMain = 15;

struct HistoryRegionOptions {
    std::int32_t MaxItems = -1;  // no limit unless it is above 0
    bool AsSubMenu = false;
    bool WithTips = true;
};

// The label of a history item, made and kept with the item. The text as it was before it was cut is
// what comes back.
std::u16string UncutHistoryCaption(QueueHistory& history, std::size_t index);

// The tip of a history item, made once and kept with the item.
const std::u16string& HistoryTip(QueueHistory& history, std::size_t index, const Strings& strings);

// The label of the popup that holds the history.
std::u16string HistorySubMenuLabel(std::size_t count, const HistoryRegionOptions& options,
                                   const Strings& strings);

// Adds the items of the history, the newest first. An empty history adds nothing.
void AddHistoryRegion(QueueHistory& history, const HistoryRegionOptions& options,
                      const Strings& strings, PhraseMenu& menu);

}  // namespace vbr

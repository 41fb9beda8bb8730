// SPDX-License-Identifier: MIT
#include "menu/phrase_region.h"

#include <algorithm>

namespace vbr {
namespace {

void AddItem(const VBRCommand& record, PhraseMenuItem item, PhraseMenu& menu) {
    if (record.FlagsMenu & kSeparatorBefore) {
        AddSeparator(menu);
    }
    menu.push_back(std::move(item));
    if (record.FlagsMenu & kSeparatorAfter) {
        AddSeparator(menu);
    }
}

PhraseMenuItem MakeItem(const VBRCommand& record, const PhraseRegionState& state,
                        const PhraseItemMaker& items) {
    PhraseMenuItem item;
    item.Info = items.DescribePhrase(record, state.Input);
    item.Grayed = record.DisabledIsNoHasSelection && state.Input.SelText.empty();
    return item;
}

void AddPhrases(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                const PhraseItemMaker& items, PhraseMenu& menu) {
    // Ids of one list differ, so only what stood here before can meet them.
    std::vector<std::uint32_t> before;
    for (const PhraseMenuItem& item : menu) {
        before.push_back(item.Info.CommandId);
    }
    menu.reserve(menu.size() + list.size());
    std::int32_t row = 0;
    for (const VBRCommand& record : list) {
        if (record.IsGroup() || !record.IsEnabled() ||
            std::find(before.begin(), before.end(), record.CMDID) != before.end()) {
            continue;
        }
        PhraseMenuItem item = MakeItem(record, state, items);
        item.Info.Row = row++;
        item.Info.Mark = record.CMDID == state.LastCommandId;
        AddItem(record, std::move(item), menu);
    }
}

void AddGroups(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
               const PhraseItemMaker& items, PhraseMenu& menu) {
    bool separate = !menu.empty();
    for (const VBRCommand& record : list) {
        if (!record.IsGroup()) {
            continue;
        }
        PhraseMenuItem popup;
        AddPhraseRegion(*record.Commands, state, items, popup.Children);
        if (popup.Children.empty()) {
            continue;
        }
        if (separate) {
            AddSeparator(menu);
            separate = false;
        }
        popup.Info.Label = MenuLabel(record.Text);
        popup.Info.ItemFlags = kItemPopup;
        popup.Info.Mark = state.HoldsLastCommand(record);
        AddItem(record, std::move(popup), menu);
    }
}

}  // namespace

void AddRecentRegion(const std::vector<const VBRCommand*>& recent, const PhraseRegionState& state,
                     const PhraseItemMaker& items, PhraseMenu& menu) {
    std::int32_t index = 0;
    for (const VBRCommand* record : recent) {
        PhraseMenuItem item = MakeItem(*record, state, items);
        item.Info.Row = index;
        item.Info.Mark = index == 0;
        item.Info.RecentIndex = index++;
        menu.push_back(std::move(item));
    }
}

void AddPhraseRegion(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                     const PhraseItemMaker& items, PhraseMenu& menu) {
    AddPhrases(list, state, items, menu);
    AddGroups(list, state, items, menu);
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "menu/phrase_region.h"

namespace vbr {
namespace {

// A plain separator, unless the menu already ends in one.
void AddSeparator(PhraseMenu& menu) {
    if (menu.empty() || !menu.back().IsSeparator()) {
        PhraseMenuItem separator;
        separator.Info.ItemFlags = kItemSeparator;
        menu.push_back(separator);
    }
}

void AddItem(const VBRCommand& record, PhraseMenuItem item, PhraseMenu& menu) {
    if (record.FlagsMenu & kSeparatorBefore) {
        AddSeparator(menu);
    }
    menu.push_back(std::move(item));
    if (record.FlagsMenu & kSeparatorAfter) {
        AddSeparator(menu);
    }
}

void AddPhrases(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                const PhraseItemMaker& items, PhraseMenu& menu) {
    std::int32_t row = 0;
    for (const VBRCommand& record : list) {
        if (record.IsGroup() || !record.IsEnabled()) {
            continue;
        }
        PhraseMenuItem item;
        item.Info = items.DescribePhrase(record, state.Input);
        item.Info.Row = row++;
        item.Info.Mark = record.CMDID == state.LastCommandId;
        item.Grayed = record.DisabledIsNoHasSelection && state.Input.SelText.empty();
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
        popup.Info.Label = record.Text;
        popup.Info.ItemFlags = kItemPopup;
        popup.Info.Mark = state.HoldsLastCommand(record);
        AddItem(record, std::move(popup), menu);
    }
}

}  // namespace

void AddPhraseRegion(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                     const PhraseItemMaker& items, PhraseMenu& menu) {
    AddPhrases(list, state, items, menu);
    AddGroups(list, state, items, menu);
}

}  // namespace vbr

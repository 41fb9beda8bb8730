// SPDX-License-Identifier: MIT
#include "menu/phrase_region.h"

#include <algorithm>

#include "macros/phrase_texts.h"

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
                PhraseMenu& menu) {
    std::int32_t row = 0;
    for (const VBRCommand& record : list) {
        if (record.IsGroup() || !record.IsEnabled()) {
            continue;
        }
        PhraseMenuItem item;
        item.Info.Label = PhraseTitle(record);
        item.Info.DataType = record.DataType;
        item.Info.Row = row++;
        item.Info.CommandId = record.CMDID;
        item.Info.Mark = record.CMDID == state.LastCommandId;
        item.Grayed = record.DisabledIsNoHasSelection && !state.HasSelection;
        AddItem(record, std::move(item), menu);
    }
}

bool Holds(const PhraseMenu& menu, std::uint32_t id) {
    return id != 0 && std::any_of(menu.begin(), menu.end(), [id](const PhraseMenuItem& item) {
               return item.Info.CommandId == id || Holds(item.Children, id);
           });
}

void AddGroups(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
               PhraseMenu& menu) {
    bool separate = !menu.empty();
    for (const VBRCommand& record : list) {
        if (!record.IsGroup()) {
            continue;
        }
        PhraseMenuItem popup;
        AddPhraseRegion(*record.Commands, state, popup.Children);
        if (popup.Children.empty()) {
            continue;
        }
        if (separate) {
            AddSeparator(menu);
            separate = false;
        }
        popup.Info.Label = record.Text;
        popup.Info.ItemFlags = kItemPopup;
        popup.Info.Mark = Holds(popup.Children, state.LastCommandId);
        AddItem(record, std::move(popup), menu);
    }
}

}  // namespace

void AddPhraseRegion(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                     PhraseMenu& menu) {
    AddPhrases(list, state, menu);
    AddGroups(list, state, menu);
}

}  // namespace vbr

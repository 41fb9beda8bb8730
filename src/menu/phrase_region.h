// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "macros/macro_values.h"
#include "menu/menu_item_info.h"
#include "menu/phrase_item.h"
#include "phrases/command_record.h"

namespace vbr {

// What of the query and the past decides about the items.
struct PhraseRegionState {
    MacroInput Input;
    std::uint32_t LastCommandId = 0;  // the last phrase chosen, 0 for none
    std::function<bool(const VBRCommand& group)> HoldsLastCommand = [](const VBRCommand&) {
        return false;
    };
};

// Adds phrases by themselves, the newest first, which is marked. The caller leaves out groups.
void AddRecentRegion(const std::vector<const VBRCommand*>& recent, const PhraseRegionState& state,
                     const PhraseItemMaker& items, PhraseMenu& menu);

// Adds the enabled phrases of a list and then its groups, each a popup, to the menu. A phrase that
// stands in this menu already and a group that shows nothing are left out.
void AddPhraseRegion(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                     const PhraseItemMaker& items, PhraseMenu& menu);

}  // namespace vbr

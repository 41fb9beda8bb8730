// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "menu/menu_item_info.h"
#include "phrases/command_record.h"

namespace vbr {

// What of the query and the past decides about the items.
struct PhraseRegionState {
    bool HasSelection = false;
    std::uint32_t LastCommandId = 0;  // the last phrase chosen, 0 for none
};

// Adds the enabled phrases of a list and then its groups, each a popup, to the menu. A group that
// shows nothing is left out.
void AddPhraseRegion(const std::vector<VBRCommand>& list, const PhraseRegionState& state,
                     PhraseMenu& menu);

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "menu/menu_item_info.h"

namespace vbr {

// Two items that stand for different things have different numbers afterwards: of those that shared
// one, the first of the menu keeps it.
void TellNumbersApart(PhraseMenu& menu);

}  // namespace vbr

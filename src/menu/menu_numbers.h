// SPDX-License-Identifier: MIT
#pragma once

#include "menu/menu_item_info.h"

namespace vbr {

// Gives history items and commands whose number a phrase has too a number of their own.
void TellNumbersApart(PhraseMenu& menu);

}  // namespace vbr

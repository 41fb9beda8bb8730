// SPDX-License-Identifier: MIT
#pragma once

#include "history/history_item.h"
#include "platform/log.h"
#include "platform/program_windows.h"

namespace vbr {

// Fills in which program put the item on the clipboard, unless that is known or there is no owner.
void ReadOwnerInfo(CCHItem& item, const ProgramWindows& windows, Log& log);

// The icon of the item's program, looked for once in the item's life; null when there is none.
IconHandle GetItemIcon(const CCHItem& item, const ProgramWindows& windows);

}  // namespace vbr

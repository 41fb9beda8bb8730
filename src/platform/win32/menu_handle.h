// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/menu_data.h"
#include "platform/win32/handle.h"

namespace vbr {

using UniqueMenu = Unique<HMENU, DestroyMenu>;

// A popup menu made from plain data, its sub-menus included.
UniqueMenu MakePopupMenu(const std::vector<MenuEntry>& entries);

// Brings a menu that was made of other entries in line with these, sub-menus excepted: entries that
// stand at the same place stay, so that what is shown or selected there does, too.
void UpdatePopupMenu(HMENU menu, const std::vector<MenuEntry>& entries);

}  // namespace vbr

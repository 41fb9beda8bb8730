// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <type_traits>
#include <vector>

#include "platform/menu_data.h"

namespace vbr {

struct MenuDestroyer {
    using pointer = HMENU;
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDestroyer>;

// A popup menu made from plain data, its sub-menus included.
UniqueMenu MakePopupMenu(const std::vector<MenuEntry>& entries);

}  // namespace vbr

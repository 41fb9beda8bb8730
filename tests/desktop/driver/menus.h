// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr::desktop {

// Whether a popup menu is on the screen.
bool IsMenuOpen();

bool WaitForMenu();
bool WaitForNoMenu();

// Chooses the item at that position, counted from 0, in the open menu, with the keyboard.
void ChooseMenuItem(int position);

}  // namespace vbr::desktop

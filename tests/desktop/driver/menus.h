// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>
#include <vector>

namespace vbr::desktop {

// Whether a popup menu is on the screen.
bool IsMenuOpen();

bool WaitForMenu();
bool WaitForNoMenu();

// The window of the menu in front, null when there is none.
HWND TopMenuWindow();

// Chooses the item at that position, counted from 0, in the open menu, with the keyboard.
void ChooseMenuItem(int position);

// An item of an open menu, as a screen reader meets it.
struct MenuLine {
    int Depth = 0;  // 0 in the menu that was asked, 1 in its popups
    int Id = 0;     // 0 for a popup or a separator
    UINT State = 0;
    bool IsAccessible = false;  // owner-drawn, with its name where readers look for it
    RECT Rect{};                // on the screen, where the item shows
    std::u16string Label;

    bool IsChecked() const { return (State & MFS_CHECKED) != 0; }
    bool IsDefault() const { return (State & MFS_DEFAULT) != 0; }
    bool IsGrayed() const { return (State & MFS_GRAYED) != 0; }
    bool IsSelected() const { return (State & MFS_HILITE) != 0; }
};

// The items of that menu window and of the popups below it; nothing when they can't be read.
std::vector<MenuLine> ReadMenu(HWND menuWindow);

// The line with that label in the menu in front, an empty line when there is none.
MenuLine FindMenuLine(std::u16string_view label);

enum class MouseButton { Left, Right };

// Moves the mouse over the item and clicks.
void ClickMenuLine(const MenuLine& line, MouseButton button);

}  // namespace vbr::desktop

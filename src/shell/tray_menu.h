// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "phrases/command_tree.h"
#include "platform/menu_data.h"
#include "platform/strings.h"

namespace vbr {

// What the tray menu shows of the program's state.
struct TrayMenuState {
    bool ServiceInstalled = false;
    bool SoundsOn = false;
    bool LogOn = false;
    bool PaneOnStart = false;
    CommandCounts Phrases;
};

// The tray menu as plain data: the template in the user's language with counts and check marks.
// Commands whose work isn't in the program are grayed.
std::vector<MenuEntry> BuildTrayMenu(const TrayMenuState& state, const Strings& strings);

// Whether the program carries out the command.
bool IsTrayCommandAvailable(int commandId);

}  // namespace vbr

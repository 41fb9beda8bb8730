// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "phrases/command_tree.h"
#include "platform/menu_data.h"
#include "platform/strings.h"
#include "shell/tray_commands.h"

namespace vbr {

// The tray menu as plain data: the template in the user's language with counts and check marks.
// Commands that can't be carried out now are grayed.
std::vector<MenuEntry> BuildTrayMenu(const TrayCommands& commands, const CommandCounts& phrases,
                                     const Strings& strings);

}  // namespace vbr

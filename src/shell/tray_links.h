// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vbr {

// The web address that a command of the tray menu opens; empty for any other command.
std::u16string LinkOfCommand(int commandId);

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// The icon of the program's resources beside the tip of a command.
int IconOfCommand(std::uint32_t id);
// Whether the editor's own icon stands there, where it can be had.
bool IsEditorCommand(std::uint32_t id);

}  // namespace vbr

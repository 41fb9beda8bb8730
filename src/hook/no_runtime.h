// SPDX-License-Identifier: MIT
#pragma once

namespace vbr::hook {

// Gives the stack protector a value that nobody outside the process can know. Before any other
// function of the library runs.
void ArmStackProtector();

}  // namespace vbr::hook

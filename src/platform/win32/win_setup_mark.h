// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// Whether the setup program has installed this program for the user: it leaves the value
// "FromInstaller" under the program's key.
bool IsInstalledBySetup();

}  // namespace vbr

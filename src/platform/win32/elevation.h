// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// Whether this process has the rights of an administrator.
bool IsProcessElevated();

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace vbr {

// The path in the form in which Windows reaches it: as it is, or behind "\\?\" when it is long or
// when a name in it ends in a point or a blank. A path with such a name that leads nowhere that way
// stays as it is; Windows then drops the point or blank.
std::filesystem::path ReachablePath(const std::filesystem::path& path);

}  // namespace vbr

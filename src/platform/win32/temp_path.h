// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace vbr {

// A path for a temporary file in the folder, or in the system's folder for an empty one, with the
// extension, to which a missing point is added. Empty on failure.
std::filesystem::path MakeTempPath(const std::filesystem::path& folder,
                                   std::u16string_view extension);

}  // namespace vbr

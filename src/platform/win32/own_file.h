// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace vbr {

// Deletes the file, read-only or not, and no folder. A link of that name goes, not what it leads
// to. With `isElevated` nothing is deleted in a folder that is a link: whoever may make one there
// would have this process delete files that are not their own. The last error tells why not.
bool DeleteOwnFile(const std::filesystem::path& path, bool isElevated);
// As this process is.
bool DeleteOwnFile(const std::filesystem::path& path);

// Whether the folder that holds the path is a link or a junction.
bool IsInLink(const std::filesystem::path& path);

}  // namespace vbr

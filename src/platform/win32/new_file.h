// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <filesystem>
#include <string_view>

namespace vbr {

// A path in the folder, with a name as files on their way in have it, that no other process, and no
// other call in this one, has.
std::filesystem::path NewFileIn(const std::filesystem::path& folder);

// Makes the file of all the bytes, with the rights of its folder, and flushes it. The last error
// tells why not.
bool WriteWhole(const std::filesystem::path& path, std::string_view bytes);

// Moves the file to a place in the same folder: also where a file is, read-only or not, whose
// rights stay, or, without `replace`, only where none is. The last error tells why not; all is as
// it was then.
bool SwapIn(const std::filesystem::path& fresh, const std::filesystem::path& path, bool replace);

}  // namespace vbr

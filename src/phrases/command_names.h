// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file_store.h"

namespace vbr {

// The title without what a file name can't hold: its first line, each forbidden character and,
// with `blanksToo`, each blank turned into `replacement`. A title of nothing else gives "".
std::u16string MakeSafeFileName(std::u16string_view title, bool blanksToo,
                                std::u16string_view replacement = u"_");

// The safe name, the index in decimal when it is above 1, and the extension if wanted.
std::u16string MakeFileTitle(std::u16string_view title, std::uint32_t index, bool withExtension,
                             bool blanksToo);

// The first path in `folder`, by index 1, 2, 3…, that doesn't exist as a file (or as a folder when
// `asFile` is false).
std::filesystem::path MakeUniquePath(FileStore& files, std::u16string_view title,
                                     const std::filesystem::path& folder, bool withExtension,
                                     bool blanksToo, bool asFile);

}  // namespace vbr

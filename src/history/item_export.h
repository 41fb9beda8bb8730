// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "history/history_item.h"
#include "platform/bitmap.h"

namespace vbr {

// A file in the pieces that follow each other in it.
struct ItemFile {
    std::vector<std::byte> Head;
    std::vector<std::byte> Body;
};

// The file that a user saves an item to: text behind a mark of its kind and without a terminator,
// other data byte for byte. Nothing for a bitmap that can't be read.
std::optional<ItemFile> ExportItem(const CCHItem& item);

// A BMP file; nothing when the bitmap has no size, can't be read, or is too large for such a file.
std::optional<ItemFile> ExportBitmap(const Bitmap& bitmap);

// Makes the file anew. False when that fails; what was written stays then.
bool WriteItemFile(const std::filesystem::path& path, const ItemFile& file);
bool WriteBitmapFile(const std::filesystem::path& path, const Bitmap& bitmap);

}  // namespace vbr

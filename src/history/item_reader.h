// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include "history/history_item.h"
#include "history/item_info.h"
#include "platform/log.h"
#include "platform/stamped_files.h"

namespace vbr {

// What a data file of text in UTF-16 begins with.
inline constexpr std::array<std::byte, 2> kUtf16Mark = {std::byte{0xFF}, std::byte{0xFE}};

// Makes items of the files in the history's folder. What can't be read is logged and stays.
class ItemReader {
  public:
    ItemReader(const std::filesystem::path& folder, StampedFiles& files, Log& log)
        : folder_(folder), files_(files), log_(log) {}

    // Nothing when the description can't be read.
    std::optional<ItemInfo> ReadInfo(const std::filesystem::path& path);
    // The item that the description tells of; null without its first data file.
    std::unique_ptr<CCHItem> ReadItem(std::filesystem::path infoPath, const ItemInfo& info);
    // One data file as an item of the format that its name tells; null when it is empty or can't
    // be read.
    std::unique_ptr<CCHItem> LoadDataFile(std::u16string_view name);

    void LogSkipped(const std::filesystem::path& infoPath, std::u16string_view why);

  private:
    std::unique_ptr<CCHItem> ReadNamed(std::u16string_view name,
                                       const std::filesystem::path& infoPath);

    const std::filesystem::path& folder_;
    StampedFiles& files_;
    Log& log_;
};

}  // namespace vbr

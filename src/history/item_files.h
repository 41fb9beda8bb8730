// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <vector>

#include "history/history_item.h"

namespace vbr {

// What the queue asks of the folder that keeps the items. Failures are logged there.
class ItemFiles {
  public:
    virtual ~ItemFiles() = default;

    // Also a read-only file. True when it is gone, or never was.
    virtual bool Delete(const std::filesystem::path& path) = 0;
    // Brings the files that the item has in line with its protection.
    virtual void StoreProtection(const CCHItem& item) = 0;
    // Lifts the protection of a file that its item leaves behind.
    virtual void Release(const std::filesystem::path& path) = 0;
    // Deletes all files of the folder but these, compared in any letter case; the number deleted.
    virtual std::size_t Clear_Directory_Exclude(
        const std::vector<std::filesystem::path>& excluded) = 0;
};

}  // namespace vbr

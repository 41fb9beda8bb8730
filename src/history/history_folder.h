// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "history/history_item.h"
#include "history/item_info.h"
#include "platform/file_store.h"
#include "platform/log.h"
#include "platform/stamped_files.h"

namespace vbr {

class CCHQueue;

// The files of the history: an ".info" file an item, and a data file for each of its formats. A
// data file is complete before an ".info" file names it. Any thread may call; one writes at a time.
class HistoryFolder {
  public:
    HistoryFolder(std::filesystem::path folder, FileStore& store, StampedFiles& files, Log& log)
        : folder_(std::move(folder)), store_(store), files_(files), log_(log) {}

    const std::filesystem::path& Path() const { return folder_; }

    // Whether the folder is there, made if need be.
    bool Make();

    // Writes the items' files, oldest first, and calls `onSaved` for each that was written, with
    // its paths in it. One that can't be written is logged and left out.
    template <typename OnSaved>
    void Save(const ItemList& items, OnSaved&& onSaved) {
        Names names = ListNames();
        for (const auto& item : items) {
            if (SaveItem(*item, names)) {
                onSaved(*item);
            }
        }
    }

    // Adds what the folder holds, in the order of time. What can't be read is logged and stays.
    void Load(CCHQueue& queue);

    // One data file as an item of the format that its name tells; null when it is empty or can't
    // be read.
    std::unique_ptr<CCHItem> LoadDataFile(std::u16string_view name);

    // Also a read-only file. True when it is gone, or never was; a failure is logged.
    bool Delete(const std::filesystem::path& path);
    // Brings the files that the item has in line with its protection.
    void StoreProtection(const CCHItem& item);
    // Lifts the protection of a file that its item leaves behind.
    void Release(const std::filesystem::path& path);
    // Deletes all files of the folder but these, compared in any letter case; the number deleted.
    std::size_t Clear_Directory_Exclude(const std::vector<std::filesystem::path>& excluded);

  private:
    // Names in the folder, upper case; with the number to try next for each kind of name.
    struct Names {
        std::set<std::u16string> Taken;
        std::map<std::u16string, std::uint32_t> Next;
    };

    Names ListNames();
    std::filesystem::path FreeName(Names& names, std::u16string_view stem,
                                   std::u16string_view extension) const;
    bool SaveItem(CCHItem& item, Names& names);
    bool WriteDataFile(CCHItem& item, const FileStamp& stamp, Names& names);
    bool WriteInfo(CCHItem& item, const ItemInfo& info, Names& names);
    std::unique_ptr<CCHItem> LoadItem(std::filesystem::path infoPath);
    std::unique_ptr<CCHItem> LoadNamed(std::u16string_view name,
                                       const std::filesystem::path& infoPath);
    void LogSkipped(const std::filesystem::path& path, std::u16string_view why);

    std::filesystem::path folder_;
    FileStore& store_;
    StampedFiles& files_;
    Log& log_;
};

}  // namespace vbr

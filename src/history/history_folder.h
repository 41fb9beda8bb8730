// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "history/file_changes.h"
#include "history/folder_names.h"
#include "history/history_item.h"
#include "history/item_reader.h"
#include "platform/file_store.h"
#include "platform/log.h"
#include "platform/stamped_files.h"

namespace vbr {

class CCHQueue;

// The files of the history: an ".info" file an item, and a data file for each of its formats. A
// data file is complete before an ".info" file names it, and goes after it. Other processes may use
// the folder too. Any thread may call.
class HistoryFolder {
  public:
    HistoryFolder(std::filesystem::path folder, FileStore& store, StampedFiles& files, Log& log)
        : folder_(std::move(folder)),
          store_(store),
          files_(files),
          log_(log),
          reader_(folder_, files, log) {}
    HistoryFolder(const HistoryFolder&) = delete;
    HistoryFolder& operator=(const HistoryFolder&) = delete;

    const std::filesystem::path& Path() const { return folder_; }

    // Brings the files in line with what happened and writes these items, oldest first; calls
    // `onSaved` for each whose files are complete, with its paths in it. False, with lines in the
    // log, when something was not possible now: the changes are kept for the next call, the items
    // not.
    template <typename OnSaved>
    bool Save(const FileChanges& changes, const ItemList& items, OnSaved&& onSaved) {
        Note(changes, items);
        if (items.empty() && !HasWork()) {
            return true;
        }
        const std::shared_ptr<HeldFile> held = Open();
        if (!held) {
            return false;
        }
        bool complete = true;
        for (const auto& item : items) {
            const Outcome outcome = Write(*item);
            complete = complete && outcome != Outcome::NotNow;
            if (outcome == Outcome::Done) {
                onSaved(*item);
            }
        }
        return CarryOut() && complete;
    }

    // Keeps the changes for the next Save. An item that is to be written was not removed.
    void Note(const FileChanges& changes, const ItemList& items);

    // Adds what the folder holds beyond what was written or loaded before, in the order of time. A
    // file that can't be read is logged and stays. False when the folder can't be listed now.
    bool Load(CCHQueue& queue);

    // Deletes all files of the folder but these names, which are in upper case, and what other
    // processes protect. The number deleted; nothing when something couldn't be looked at or
    // deleted.
    std::optional<std::size_t> Clear_Directory_Exclude(std::unordered_set<std::u16string> excluded);

  private:
    using Names = std::unordered_set<std::u16string>;  // upper case

    // An item's files, by their names, as they were written or read last.
    struct Stored {
        std::u16string Info;
        std::vector<std::u16string> Data;  // the primary's first
        FileTicks Time = 0;
        std::uint32_t Revision = 0;
        bool IsWhole = true;  // no format is missing that could be written later
    };
    enum class Outcome { Done, NotNow, Refused };
    enum class Owner { Ours, Others, Unknown };

    bool Make();
    std::shared_ptr<HeldFile> Hold();
    // Makes the folder, holds it and knows its names; null, with a line in the log.
    std::shared_ptr<HeldFile> Open();
    bool List(std::vector<FolderEntry>& entries);

    bool HasWork();
    bool CarryOut();
    bool CarryOutRemovals();
    bool IsDue(std::u16string_view successor) const;

    Outcome Write(CCHItem& item);
    bool IsTooLarge(const CCHItem& item);
    Outcome WriteData(CCHItem& item, bool isProtected, Stored& fresh);
    bool WriteInfo(const CCHItem& item, const Stored* before, Stored& fresh);

    // Whether the description is still that of this item: another process may have deleted it and
    // used its name again.
    Owner OwnerOf(const Stored& stored);
    bool Remove(const std::u16string& key);
    bool Protect(const std::u16string& key, bool on);
    bool Clear();
    bool Delete(std::u16string_view name);
    // What can't be deleted now is deleted later.
    void DeleteData(const std::vector<std::u16string>& names);

    // Deletes what a process left behind that ended while it wrote or deleted.
    void SweepStale(const std::vector<FolderEntry>& entries, const Names& named);
    Names StoredNames() const;
    void LogNotSaved(std::u16string_view name, std::u16string_view why);

    std::filesystem::path folder_;
    FileStore& store_;
    StampedFiles& files_;
    Log& log_;
    ItemReader reader_;

    std::mutex mutex_;  // guards what follows
    std::weak_ptr<HeldFile> held_;
    std::optional<FolderNames> names_;                   // once the folder was listed
    std::unordered_map<std::u16string, Stored> stored_;  // by the item's key
    // What is still to be done: items that go, with their successors; protection; a clear; data
    // files that nothing names.
    std::unordered_map<std::u16string, std::u16string> removals_;
    std::map<std::u16string, bool> protections_;
    bool clear_ = false;
    std::vector<std::u16string> leftovers_;
    std::set<std::pair<std::u16string, std::uint32_t>> refused_;  // keys and revisions
};

}  // namespace vbr

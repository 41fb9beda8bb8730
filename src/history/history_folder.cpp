// SPDX-License-Identifier: MIT
#include "history/history_folder.h"

#include <algorithm>

#include "base/text.h"
#include "history/history_queue.h"
#include "history/item_names.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

constexpr std::u16string_view kLockName = u"vellumbridge_cb.lock";
// Names that other programs make meanwhile; more in a row are no accident.
constexpr int kMaxNameTries = 100;

// False when one of them was there already.
bool AddNames(const ItemInfo& info, std::unordered_set<std::u16string>& names) {
    bool isNew = true;
    for (const std::u16string& name : info.Files) {
        isNew = names.insert(ToUpper(name)).second && isNew;
    }
    return isNew;
}

}  // namespace

bool HistoryFolder::Make() {
    std::error_code error;
    fs::create_directory(folder_, error);
    if (store_.KindOf(folder_) == PathKind::Folder) {
        return true;
    }
    log_.LogError(Concat(u"No folder for the clipboard history: ", folder_.u16string()));
    return false;
}

std::shared_ptr<HeldFile> HistoryFolder::Hold() {
    std::shared_ptr<HeldFile> held = held_.lock();
    if (!held) {
        held = files_.Hold(folder_ / kLockName);
        held_ = held;
    }
    return held;
}

std::shared_ptr<HeldFile> HistoryFolder::Open() {
    const std::lock_guard lock(mutex_);
    if (!Make()) {
        return nullptr;
    }
    std::shared_ptr<HeldFile> held = Hold();
    if (!held) {
        log_.LogError(Concat(u"Clipboard history in use by another program, or not writable: ",
                             (folder_ / kLockName).u16string()));
        return nullptr;
    }
    std::vector<FolderEntry> entries;
    if (!names_ && !List(entries)) {
        return nullptr;
    }
    return held;
}

bool HistoryFolder::List(std::vector<FolderEntry>& entries) {
    if (const auto error = store_.List(folder_, entries)) {
        log_.LogError(
            Concat(u"Clipboard history not read: ", folder_.u16string(), u": ", error->Text));
        return false;
    }
    names_.emplace();
    for (const FolderEntry& entry : entries) {
        names_->Take(entry.Name);
    }
    return true;
}

void HistoryFolder::Note(const FileChanges& changes, const ItemList& items) {
    const std::lock_guard lock(mutex_);
    for (const FileChange& change : changes) {
        switch (change.What) {
            case FileChange::Kind::Removed:
            case FileChange::Kind::Superseded:
                removals_[change.Key] = change.Successor;
                break;
            case FileChange::Kind::Protected:
                protections_[change.Key] = change.On;
                break;
            case FileChange::Kind::Cleared:
                clear_ = true;
                break;
        }
    }
    // One that was removed may be back.
    for (const auto& item : items) {
        removals_.erase(item->key);
    }
}

bool HistoryFolder::HasWork() {
    const std::lock_guard lock(mutex_);
    return clear_ || !removals_.empty() || !protections_.empty() || !leftovers_.empty();
}

bool HistoryFolder::CarryOut() {
    const std::lock_guard lock(mutex_);
    bool done = CarryOutRemovals();
    DeleteData(std::exchange(leftovers_, {}));
    if (clear_) {
        clear_ = !Clear();
    }
    std::erase_if(protections_,
                  [this](const auto& change) { return Protect(change.first, change.second); });
    return done && leftovers_.empty() && !clear_ && protections_.empty();
}

bool HistoryFolder::CarryOutRemovals() {
    std::vector<std::u16string> due;
    for (const auto& [key, successor] : removals_) {
        if (IsDue(successor)) {
            due.push_back(key);
        }
    }
    bool done = true;
    for (const std::u16string& key : due) {
        if (Remove(key)) {
            removals_.erase(key);
        } else {
            removals_[key].clear();
            done = false;
        }
    }
    return done;
}

// A successor may have been removed itself, before it was ever written.
bool HistoryFolder::IsDue(std::u16string_view successor) const {
    while (!successor.empty() && !stored_.contains(std::u16string(successor))) {
        const auto next = removals_.find(std::u16string(successor));
        if (next == removals_.end()) {
            return false;
        }
        successor = next->second;
    }
    return true;
}

HistoryFolder::Outcome HistoryFolder::Write(CCHItem& item) {
    const std::lock_guard lock(mutex_);
    const auto found = stored_.find(item.key);
    const Stored* const before = found == stored_.end() ? nullptr : &found->second;
    if (before && before->Revision == item.revision && before->IsWhole) {
        item.infoPath = folder_ / before->Info;
        item.dataPath = folder_ / before->Data.front();
        return Outcome::Done;
    }
    Stored fresh{.Time = FileTicksOf(item.time).value_or(0), .Revision = item.revision};
    if (const Outcome outcome = WriteData(item, item.isProtected, fresh);
        outcome != Outcome::Done) {
        return outcome;
    }
    for (const auto& alternative : item.alternatives) {
        fresh.IsWhole = WriteData(*alternative, false, fresh) != Outcome::NotNow && fresh.IsWhole;
    }
    if (!WriteInfo(item, before, fresh)) {
        DeleteData(fresh.Data);
        return Outcome::NotNow;
    }
    item.infoPath = folder_ / fresh.Info;
    const std::vector<std::u16string> old =
        before && before->Info == fresh.Info ? before->Data : std::vector<std::u16string>();
    const bool isWhole = fresh.IsWhole;
    stored_.insert_or_assign(item.key, std::move(fresh));
    DeleteData(old);
    return isWhole ? Outcome::Done : Outcome::NotNow;
}

bool HistoryFolder::IsTooLarge(const CCHItem& item) {
    if (item.Data().size() + kUtf16Mark.size() <= kMaxStampedFile) {
        return false;
    }
    if (refused_.emplace(item.key, item.revision).second) {
        log_.LogError(Concat(u"History item not saved: its ", item.Data().size(),
                             u" bytes would not be read again"));
    }
    return true;
}

HistoryFolder::Outcome HistoryFolder::WriteData(CCHItem& item, bool isProtected, Stored& fresh) {
    item.dataPath.clear();
    if (!IsStorable(item) || IsTooLarge(item)) {
        return Outcome::Refused;
    }
    const bool isUtf16 = item.format == CHF_UNICODE_TEXT;
    const std::span<const std::byte> pieces[] = {kUtf16Mark, item.Data()};
    const std::span<const std::span<const std::byte>> all(pieces);
    for (int tries = 0; tries < kMaxNameTries; ++tries) {
        std::u16string name =
            names_->TakeFree(isUtf16 ? kUnicodeStem : kDataStem, ExtensionOf(item.format));
        const auto error = files_.CreateNew(folder_ / name, all.subspan(isUtf16 ? 0 : 1),
                                            {fresh.Time, isProtected});
        if (!error) {
            item.dataPath = folder_ / name;
            fresh.Data.push_back(std::move(name));
            return Outcome::Done;
        }
        if (error->Code != kErrorFileExists) {
            names_->Release(name);
            LogNotSaved(name, error->Text);
            return Outcome::NotNow;
        }
    }
    LogNotSaved(kDataStem, u"all names that it could have are taken");
    return Outcome::NotNow;
}

bool HistoryFolder::WriteInfo(const CCHItem& item, const Stored* before, Stored& fresh) {
    const std::string bytes = WriteItemInfo({item.format, item.isProtected, item.wndName,
                                             item.exeName, item.sourceUrl, fresh.Data, fresh.Time});
    const FileStamp stamp{fresh.Time, item.isProtected};
    const Owner owner = before ? OwnerOf(*before) : Owner::Others;
    if (owner == Owner::Unknown) {
        LogNotSaved(before->Info, u"it can't be read");
        return false;
    }
    const bool replaces = owner == Owner::Ours;
    for (int tries = 0; tries < kMaxNameTries; ++tries) {
        fresh.Info = replaces ? before->Info : names_->TakeFree(kInfoStem, kInfoExtension);
        const auto error = files_.MoveIn(folder_ / fresh.Info, bytes, stamp, replaces);
        if (!error) {
            return true;
        }
        if (replaces || error->Code != kErrorFileExists) {
            LogNotSaved(fresh.Info, error->Text);
            if (!replaces) {
                names_->Release(fresh.Info);
            }
            return false;
        }
    }
    LogNotSaved(kInfoStem, u"all names that it could have are taken");
    return false;
}

HistoryFolder::Owner HistoryFolder::OwnerOf(const Stored& stored) {
    const std::optional<ItemInfo> info = reader_.ReadInfo(folder_ / stored.Info);
    if (!info) {
        return store_.KindOf(folder_ / stored.Info) == PathKind::Missing ? Owner::Others
                                                                         : Owner::Unknown;
    }
    return info->Files == stored.Data && info->Time == stored.Time ? Owner::Ours : Owner::Others;
}

bool HistoryFolder::Remove(const std::u16string& key) {
    const auto found = stored_.find(key);
    if (found == stored_.end()) {
        return true;
    }
    switch (OwnerOf(found->second)) {
        case Owner::Unknown:
            log_.LogError(
                Concat(u"Cannot delete the: ", found->second.Info, u": it can't be read"));
            return false;
        case Owner::Others:
            stored_.erase(found);
            return true;
        case Owner::Ours:
            break;
    }
    if (!Delete(found->second.Info)) {
        return false;
    }
    const Stored gone = std::move(found->second);
    stored_.erase(found);
    DeleteData(gone.Data);
    return true;
}

bool HistoryFolder::Protect(const std::u16string& key, bool on) {
    const auto found = stored_.find(key);
    const Owner owner = found == stored_.end() ? Owner::Others : OwnerOf(found->second);
    if (owner != Owner::Ours) {
        return owner == Owner::Others;
    }
    const Stored& stored = found->second;
    const auto content = files_.Read(folder_ / stored.Info);
    const auto error =
        content
            ? files_.MoveIn(folder_ / stored.Info,
                            WithProtection({reinterpret_cast<const char*>(content->Bytes.data()),
                                            content->Bytes.size()},
                                           on),
                            {stored.Time, on}, true)
            : SystemError{0, u"it can't be read"};
    if (error) {
        log_.LogError(Concat(u"Protection not saved: ", stored.Info, u": ", error->Text));
        return false;
    }
    files_.SetStamp(folder_ / stored.Data.front(), {0, on});
    return true;
}

bool HistoryFolder::Clear() {
    return Clear_Directory_Exclude(StoredNames()).has_value();
}

std::optional<std::size_t> HistoryFolder::Clear_Directory_Exclude(Names excluded) {
    log_.Write(u"CCHQueue::Clear_Directory_Exclude");
    std::vector<FolderEntry> entries;
    if (store_.List(folder_, entries)) {
        log_.LogError(u"INVALID_HANDLE_VALUE  in CCHQueue::Clear_Directory_Exclude");
        return std::nullopt;
    }
    bool done = true;
    excluded.insert(ToUpper(kLockName));
    for (const FolderEntry& entry : entries) {
        const bool isOthers = IsInfoName(entry) && !excluded.contains(ToUpper(entry.Name));
        const std::optional<ItemInfo> info =
            isOthers ? reader_.ReadInfo(folder_ / entry.Name) : std::nullopt;
        done = done && (!isOthers || info);
        if (isOthers && (!info || info->Protected)) {
            excluded.insert(ToUpper(entry.Name));
            AddNames(info.value_or(ItemInfo()), excluded);
        }
    }
    std::size_t count = 0;
    for (const FolderEntry& entry : entries) {
        if (entry.Kind != PathKind::File || excluded.contains(ToUpper(entry.Name))) {
            continue;
        }
        // The data of a description that can't be read may be protected too.
        const bool mayGo = done || !IsNameOfOurs(entry.Name);
        if (mayGo && IsPlainFileName(entry.Name) && Delete(entry.Name)) {
            ++count;
        } else if (mayGo && !IsPlainFileName(entry.Name)) {
            log_.LogError(Concat(u"Cannot delete the: ", entry.Name));
        } else {
            done = false;
        }
    }
    return done ? std::optional(count) : std::nullopt;
}

bool HistoryFolder::Delete(std::u16string_view name) {
    if (const auto error = files_.Delete(folder_ / name)) {
        log_.LogError(
            Concat(u"Cannot delete the: ", (folder_ / name).u16string(), u": ", error->Text));
        return false;
    }
    if (names_) {
        names_->Release(name);
    }
    return true;
}

void HistoryFolder::DeleteData(const std::vector<std::u16string>& names) {
    for (const std::u16string& name : names) {
        if (IsDataName(name) && !Delete(name)) {
            leftovers_.push_back(name);
        }
    }
}

HistoryFolder::Names HistoryFolder::StoredNames() const {
    Names names;
    for (const auto& [key, stored] : stored_) {
        names.insert(ToUpper(stored.Info));
        for (const std::u16string& name : stored.Data) {
            names.insert(ToUpper(name));
        }
    }
    return names;
}

bool HistoryFolder::Load(CCHQueue& queue) {
    std::unique_lock lock(mutex_);
    if (!Make()) {
        return false;
    }
    // What can't be held can be read all the same.
    const std::shared_ptr<HeldFile> held = Hold();
    std::vector<FolderEntry> entries;
    if (!List(entries)) {
        return false;
    }
    Names named = StoredNames();
    named.reserve(named.size() + entries.size());
    ItemList items;
    bool isAllRead = true;
    for (const FolderEntry& entry : entries) {
        if (!IsInfoName(entry) || named.contains(ToUpper(entry.Name))) {
            continue;
        }
        fs::path path = folder_ / entry.Name;
        std::optional<ItemInfo> info = reader_.ReadInfo(path);
        if (!info) {
            isAllRead = false;
            reader_.LogSkipped(path, u"it can't be read");
            continue;
        }
        // The files of the one would go with the other.
        if (!AddNames(*info, named)) {
            reader_.LogSkipped(path, u"it names a file that another one has");
            continue;
        }
        if (auto item = reader_.ReadItem(std::move(path), *info)) {
            stored_[item->key] = {.Info = entry.Name,
                                  .Data = std::move(info->Files),
                                  .Time = info->Time,
                                  .Revision = item->revision};
            items.push_back(std::move(item));
        }
    }
    // Of equal items the newest stays.
    SortByTime(items);
    for (auto& item : items) {
        queue.Add(std::move(item), kNoItemLimit);
    }
    lock.unlock();
    Note(queue.TakeFileChanges(), {});
    if (held) {
        CarryOut();
        if (isAllRead) {
            lock.lock();
            SweepStale(entries, named);
        }
    }
    return true;
}

void HistoryFolder::SweepStale(const std::vector<FolderEntry>& entries, const Names& named) {
    for (const FolderEntry& entry : entries) {
        if (entry.Kind == PathKind::File && !EndsWithNoCase(entry.Name, kInfoExtension) &&
            !named.contains(ToUpper(entry.Name)) && IsNameOfOurs(entry.Name) &&
            Delete(entry.Name)) {
            log_.Write(Concat(u"Left by a program that ended while it wrote: ", entry.Name));
        }
    }
}

void HistoryFolder::LogNotSaved(std::u16string_view name, std::u16string_view why) {
    log_.LogError(Concat(u"History item not saved: ", (folder_ / name).u16string(), u": ", why));
}

}  // namespace vbr

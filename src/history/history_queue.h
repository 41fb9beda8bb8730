// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <memory_resource>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "history/history_item.h"

namespace vbr {

// A limit that no queue reaches.
inline constexpr std::uint32_t kNoItemLimit = 0xFFFFFFFF;

class HistoryFolder;

// The clipboard history in memory, in the order of time. From outside, index 0 is the newest item.
// Equal items are one, and a limit takes the oldest away that are not protected. Used on one
// thread.
class CCHQueue {
  public:
    explicit CCHQueue(HistoryFolder& files) : files_(files) {}
    virtual ~CCHQueue() = default;
    CCHQueue(const CCHQueue&) = delete;
    CCHQueue& operator=(const CCHQueue&) = delete;

    // Makes the item the newest. An equal older one goes, and leaves it protection and id; its
    // files stay. False, with the item gone, while the queue is locked.
    bool Add(std::unique_ptr<CCHItem> item, std::uint32_t max);
    // Takes the oldest unprotected items beyond `max` away, with their files.
    void Trim(std::uint32_t max);

    // Takes all unprotected items away, with every file of the folder; what stays is unsaved.
    // False when there was no item.
    bool Clear();
    // Takes the unprotected items among these away, with their files. False when there is nothing
    // to look at.
    bool Delete(const std::set<std::size_t>& indices, bool makeUndo);
    // Brings the items of the last record back, unsaved. False without a record.
    bool Undo();
    void ClearUndoPool() { undoPool_.clear(); }
    bool HasUndo() const { return !undoPool_.empty(); }
    std::size_t GetUndoCount() const { return undoPool_.size(); }

    std::size_t GetCount() const { return items_.size(); }
    // Valid until the queue changes; null outside.
    const CCHItem* GetItem(std::size_t index) const;
    // The oldest item that IsSame calls equal, and the item of that key; null when there is none.
    const CCHItem* FindSame(const CCHItem& item) const;
    const CCHItem* FindByKey(std::u16string_view key) const;
    // An item keeps its id wherever it moves, also when an equal one replaces it. Null and nothing
    // when it is gone.
    const CCHItem* FindById(std::uint32_t id) const;
    std::optional<std::size_t> IndexOfId(std::uint32_t id) const;

    // With the files that the item has. False outside.
    bool SetProtected(std::size_t index, bool value);
    // Lets `change` edit the item; when it returns true, the item is unsaved from then on and its
    // texts in menus are made anew. False outside, or what `change` returned.
    bool ChangeItem(std::size_t index, const std::function<bool(CCHItem&)>& change);

    // Oldest first; equal times keep their order.
    void SortByTime();
    // Takes all items of another queue in, by their time, and keeps the newest `max`. The files of
    // the others stay.
    void Merge(CCHQueue& loaded, std::uint32_t max);

    // Copies of the items that are not on disk, oldest first.
    ItemList CopyUnsaved() const;
    // The copy was written: its item, unless that has changed since, has these files now.
    void NoteSaved(const CCHItem& saved);

    // The item of the same id takes over where this one is stored.
    void NoteStored(const CCHItem& stored);

    // While set, Add refuses.
    void SetLocked(bool locked) { locked_ = locked; }
    bool IsLocked() const { return locked_; }

    // Tips come in the language of the user interface.
    void ClearTips();

  private:
    struct UndoRecord {
        ItemList Snapshot;
        bool IsPartial = false;
    };

    std::size_t PositionOf(const CCHItem& item) const;
    CCHItem* Stored(std::size_t index) const { return items_[items_.size() - 1 - index].get(); }
    void Append(std::unique_ptr<CCHItem> item);
    void Index(CCHItem& item) { byContent_.emplace(item.ContentHash(), &item); }
    void Unindex(const CCHItem& item);
    void DeleteFiles(CCHItem& item);
    // Deletes what a save wrote of an item that is different by now.
    void DeleteStale(const CCHItem& saved, const CCHItem& item);
    void DeleteAll(const std::vector<std::filesystem::path>& paths);
    // Parts off the items for which `goes` holds, called from the newest to the oldest.
    ItemList TakeOut(const std::function<bool(const CCHItem&)>& goes);

    HistoryFolder& files_;
    ItemList items_;  // oldest first
    // Its nodes stand side by side, so that looking at many of them stays cheap.
    std::pmr::unsynchronized_pool_resource nodes_;
    std::pmr::unordered_multimap<std::uint64_t, CCHItem*> byContent_{&nodes_};
    std::vector<UndoRecord> undoPool_;  // oldest first
    bool locked_ = false;
};

}  // namespace vbr

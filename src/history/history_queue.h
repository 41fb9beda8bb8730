// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <memory_resource>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "history/file_changes.h"
#include "history/history_item.h"

namespace vbr {

// A limit that no queue reaches.
inline constexpr std::uint32_t kNoItemLimit = 0xFFFFFFFF;

// The clipboard history in memory, in the order of time. From outside, index 0 is the newest item.
// Equal items are one, and a limit takes the oldest away that are not protected. What becomes of
// their files it notes for others to carry out. Used on one thread.
class CCHQueue {
  public:
    CCHQueue() = default;
    virtual ~CCHQueue() = default;
    CCHQueue(const CCHQueue&) = delete;
    CCHQueue& operator=(const CCHQueue&) = delete;

    // Makes the item the newest. An equal older one goes, and leaves it protection and id. False
    // while the queue is locked: the item comes in when it opens.
    bool Add(std::unique_ptr<CCHItem> item, std::uint32_t max);
    // Takes the oldest unprotected items beyond `max` away.
    void Trim(std::uint32_t max);

    // Takes all unprotected items away, and every file that belongs to no item. False when there
    // was no item.
    bool Clear();
    // Takes the unprotected items among these away. False when there is nothing to look at.
    bool Delete(const std::set<std::size_t>& indices, bool makeUndo);
    // Brings the items of the last record back, unsaved, but for those that are there or equal one
    // that is: all items in the order in which they stood, below what was added since, or those
    // deleted as the newest. False without a record.
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

    // False outside.
    bool SetProtected(std::size_t index, bool value);
    // Lets `change` edit the item; when it returns true, the item is unsaved from then on and its
    // texts in menus are made anew. False outside, or what `change` returned.
    bool ChangeItem(std::size_t index, const std::function<bool(CCHItem&)>& change);

    // Oldest first; equal times keep their order.
    void SortByTime() { vbr::SortByTime(items_); }
    // Takes all items of another queue in, by their time, but for those that equal one here, and
    // keeps the newest `max` and the protected ones. The files of the others stay.
    void Merge(CCHQueue& loaded, std::uint32_t max);
    // The same after a Clear that came while they were loaded: Undo brings back what is not
    // protected.
    void MergeCleared(CCHQueue& loaded);
    // How often Clear was called.
    std::uint32_t ClearCount() const { return clears_; }

    // What happened to items that may have files, since the last call.
    FileChanges TakeFileChanges() { return std::exchange(changes_, {}); }
    bool HasFileChanges() const { return !changes_.empty(); }

    // Copies of the items that can be stored and are not, oldest first.
    ItemList CopyUnsaved() const;
    bool HasUnsaved() const;
    // The copy was written: its item, unless that has changed since, has these files now.
    void NoteSaved(const CCHItem& saved);

    // The item of the same id takes over where this one is stored.
    void NoteStored(const CCHItem& stored);

    // While set, no item is added, so that indices keep their items.
    void SetLocked(bool locked);
    bool IsLocked() const { return locked_; }
    // Called when items came in because the queue opened.
    void OnArrived(std::function<void()> call) { onArrived_ = std::move(call); }

    // Tips come in the language of the user interface.
    void ClearTips();

  private:
    struct UndoRecord {
        ItemList Snapshot;
        bool IsPartial = false;
    };

    // An item beyond the limit, which left and kept its files.
    struct AsideItem {
        std::u16string Key;
        ItemFormat Format = CHF_UNICODE_TEXT;
        std::uint64_t Hash = 0;
        std::uint32_t Size = 0;
    };

    // The files of items aside that equal the new one go with its own.
    void JoinAside(const CCHItem& item);
    std::size_t PositionOf(const CCHItem& item) const;
    CCHItem* Stored(std::size_t index) const { return items_[items_.size() - 1 - index].get(); }
    void Append(std::unique_ptr<CCHItem> item);
    void Index(CCHItem& item) { byContent_.emplace(item.ContentHash(), &item); }
    void Unindex(const CCHItem& item);
    // Out of all indices; the item goes.
    void Forget(const CCHItem& item);
    void NoteRemoved(const CCHItem& item) { changes_.push_back({.Key = item.key}); }
    void UndoClear(ItemList snapshot);
    // Parts off the items for which `goes` holds, called from the newest to the oldest.
    ItemList TakeOut(const std::function<bool(const CCHItem&)>& goes);

    ItemList items_;  // oldest first
    // Their nodes stand side by side, so that looking at many of them stays cheap.
    std::pmr::unsynchronized_pool_resource nodes_;
    std::pmr::unordered_multimap<std::uint64_t, CCHItem*> byContent_{&nodes_};
    std::pmr::unordered_map<std::u16string_view, CCHItem*> byKey_{&nodes_};
    FileChanges changes_;
    std::vector<AsideItem> aside_;
    std::uint32_t clears_ = 0;
    std::vector<UndoRecord> undoPool_;  // oldest first
    bool locked_ = false;
    std::vector<std::pair<std::unique_ptr<CCHItem>, std::uint32_t>> waiting_;  // with their limits
    std::function<void()> onArrived_;
};

}  // namespace vbr

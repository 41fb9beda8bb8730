// SPDX-License-Identifier: MIT
#include "history/history_queue.h"

#include <algorithm>
#include <tuple>

#include "history/history_folder.h"

namespace vbr {
namespace {

auto Order(const SystemTime& time) {
    return std::tie(time.Year, time.Month, time.Day, time.Hour, time.Minute, time.Second,
                    time.Milliseconds);
}

std::unique_ptr<CCHItem> CopyForUndo(const CCHItem& item) {
    auto copy = item.Copy();
    copy->ForgetStorage();
    return copy;
}

}  // namespace

bool CCHQueue::Add(std::unique_ptr<CCHItem> item, std::uint32_t max) {
    if (locked_) {
        return false;
    }
    if (const CCHItem* older = FindSame(*item)) {
        item->isProtected = older->isProtected;
        item->id = older->id;
        Unindex(*older);
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(PositionOf(*older)));
        Append(std::move(item));
    } else {
        Append(std::move(item));
        Trim(max);
    }
    return true;
}

void CCHQueue::Trim(std::uint32_t max) {
    if (items_.size() <= max) {
        return;
    }
    std::size_t kept = 0;
    ItemList gone = TakeOut([&](const CCHItem& item) {
        const bool goes = kept >= max && !item.isProtected;
        kept += goes ? 0 : 1;
        return goes;
    });
    for (const auto& item : gone) {
        DeleteFiles(*item);
    }
}

bool CCHQueue::Clear() {
    const bool hadItems = !items_.empty();
    if (hadItems) {
        UndoRecord record;
        for (const auto& item : items_) {
            record.Snapshot.push_back(CopyForUndo(*item));
        }
        undoPool_.push_back(std::move(record));
        std::vector<std::filesystem::path> paths;
        for (const auto& item : TakeOut([](const CCHItem& held) { return !held.isProtected; })) {
            item->ListFiles(paths);
        }
        DeleteAll(paths);
        for (const auto& item : items_) {
            item->ForgetStorage();
        }
    }
    files_.Clear_Directory_Exclude({});
    return hadItems;
}

bool CCHQueue::Delete(const std::set<std::size_t>& indices, bool makeUndo) {
    if (indices.empty() || items_.empty()) {
        return false;
    }
    if (makeUndo) {
        UndoRecord record{.Snapshot = {}, .IsPartial = true};
        for (const std::size_t index : indices) {
            if (const CCHItem* item = GetItem(index)) {
                record.Snapshot.push_back(CopyForUndo(*item));
            }
        }
        if (!record.Snapshot.empty()) {
            undoPool_.push_back(std::move(record));
        }
    }
    std::size_t index = 0;
    std::vector<std::filesystem::path> paths;
    for (const auto& item : TakeOut(
             [&](const CCHItem& held) { return indices.contains(index++) && !held.isProtected; })) {
        item->ListFiles(paths);
    }
    DeleteAll(paths);
    return true;
}

bool CCHQueue::Undo() {
    if (undoPool_.empty()) {
        return false;
    }
    UndoRecord record = std::move(undoPool_.back());
    undoPool_.pop_back();
    if (!record.IsPartial) {
        items_.clear();
        byContent_.clear();
    }
    for (auto& item : record.Snapshot) {
        // A protected item was never gone.
        if (FindByKey(item->key)) {
            item->RenewIdentity();
        }
        Append(std::move(item));
    }
    return true;
}

const CCHItem* CCHQueue::GetItem(std::size_t index) const {
    return index < items_.size() ? Stored(index) : nullptr;
}

const CCHItem* CCHQueue::FindSame(const CCHItem& item) const {
    const auto [begin, end] = byContent_.equal_range(item.ContentHash());
    std::vector<const CCHItem*> same;
    for (auto candidate = begin; candidate != end; ++candidate) {
        if (IsSame(*candidate->second, item)) {
            same.push_back(candidate->second);
        }
    }
    const auto first = std::min_element(
        same.begin(), same.end(),
        [this](const CCHItem* a, const CCHItem* b) { return PositionOf(*a) < PositionOf(*b); });
    return first == same.end() ? nullptr : *first;
}

const CCHItem* CCHQueue::FindByKey(std::u16string_view key) const {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [key](const auto& item) { return item->key == key; });
    return found == items_.end() ? nullptr : found->get();
}

const CCHItem* CCHQueue::FindById(std::uint32_t id) const {
    const std::optional<std::size_t> index = IndexOfId(id);
    return index ? Stored(*index) : nullptr;
}

std::optional<std::size_t> CCHQueue::IndexOfId(std::uint32_t id) const {
    const auto found = std::find_if(items_.rbegin(), items_.rend(),
                                    [id](const auto& item) { return item->id == id; });
    return found == items_.rend()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - items_.rbegin()));
}

bool CCHQueue::SetProtected(std::size_t index, bool value) {
    if (index >= items_.size()) {
        return false;
    }
    CCHItem& item = *Stored(index);
    if (item.isProtected != value) {
        item.isProtected = value;
        if (item.storeState != StoreState::NotStored) {
            files_.StoreProtection(item);
        }
    }
    return true;
}

bool CCHQueue::ChangeItem(std::size_t index, const std::function<bool(CCHItem&)>& change) {
    if (index >= items_.size()) {
        return false;
    }
    CCHItem& item = *Stored(index);
    Unindex(item);
    const bool changed = change(item);
    Index(item);
    if (changed) {
        if (!item.dataPath.empty()) {
            files_.Release(item.dataPath);
        }
        item.menuCaption.clear();
        item.menuTip.clear();
        item.dataPath.clear();
        item.storeState = StoreState::NotStored;
        ++item.revision;
    }
    return changed;
}

void CCHQueue::SortByTime() {
    std::stable_sort(items_.begin(), items_.end(),
                     [](const auto& a, const auto& b) { return Order(a->time) < Order(b->time); });
}

void CCHQueue::Merge(CCHQueue& loaded, std::uint32_t max) {
    for (auto& item : loaded.items_) {
        Append(std::move(item));
    }
    loaded.items_.clear();
    loaded.byContent_.clear();
    SortByTime();
    if (items_.size() > max) {
        std::size_t kept = 0;
        TakeOut([&](const CCHItem&) { return kept++ >= max; });
    }
}

ItemList CCHQueue::CopyUnsaved() const {
    ItemList copies;
    for (const auto& item : items_) {
        if (item->storeState == StoreState::NotStored) {
            copies.push_back(item->Copy());
        }
    }
    return copies;
}

void CCHQueue::NoteSaved(const CCHItem& saved) {
    const CCHItem* found = FindByKey(saved.key);
    if (!found) {
        return;
    }
    CCHItem& item = *items_[PositionOf(*found)];
    if (item.revision != saved.revision) {
        // What was written is no longer what the item holds, and would load as one more item.
        DeleteStale(saved, item);
        return;
    }
    item.dataPath = saved.dataPath;
    item.infoPath = saved.infoPath;
    item.storeState = StoreState::Saved;
    for (std::size_t i = 0; i < std::min(item.alternatives.size(), saved.alternatives.size());
         ++i) {
        item.alternatives[i]->dataPath = saved.alternatives[i]->dataPath;
    }
    if (item.isProtected != saved.isProtected) {
        files_.StoreProtection(item);
    }
}

void CCHQueue::NoteStored(const CCHItem& stored) {
    if (const std::optional<std::size_t> index = IndexOfId(stored.id)) {
        CCHItem& item = *Stored(*index);
        item.dataPath = stored.dataPath;
        item.storeState = stored.storeState;
    }
}

void CCHQueue::DeleteStale(const CCHItem& saved, const CCHItem& item) {
    std::vector<std::filesystem::path> paths;
    saved.ListFiles(paths);
    std::erase(paths, item.infoPath);
    DeleteAll(paths);
}

void CCHQueue::ClearTips() {
    for (const auto& item : items_) {
        item->menuTip.clear();
    }
}

std::size_t CCHQueue::PositionOf(const CCHItem& item) const {
    return static_cast<std::size_t>(
        std::find_if(items_.begin(), items_.end(),
                     [&item](const auto& held) { return held.get() == &item; }) -
        items_.begin());
}

void CCHQueue::Append(std::unique_ptr<CCHItem> item) {
    items_.push_back(std::move(item));
    Index(*items_.back());
}

void CCHQueue::Unindex(const CCHItem& item) {
    const auto [begin, end] = byContent_.equal_range(item.ContentHash());
    const auto found =
        std::find_if(begin, end, [&item](const auto& entry) { return entry.second == &item; });
    if (found != end) {
        byContent_.erase(found);
    }
}

void CCHQueue::DeleteFiles(CCHItem& item) {
    std::vector<std::filesystem::path> paths;
    item.ListFiles(paths);
    DeleteAll(paths);
}

void CCHQueue::DeleteAll(const std::vector<std::filesystem::path>& paths) {
    for (const std::filesystem::path& path : paths) {
        files_.Delete(path);
    }
}

ItemList CCHQueue::TakeOut(const std::function<bool(const CCHItem&)>& goes) {
    ItemList gone;
    ItemList kept;
    kept.reserve(items_.size());
    for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
        const bool out = goes(**item);
        if (out) {
            Unindex(**item);
        }
        (out ? gone : kept).push_back(std::move(*item));
    }
    std::reverse(kept.begin(), kept.end());
    items_ = std::move(kept);
    return gone;
}

}  // namespace vbr

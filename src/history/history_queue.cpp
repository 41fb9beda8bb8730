// SPDX-License-Identifier: MIT
#include "history/history_queue.h"

#include <algorithm>
#include <iterator>

namespace vbr {
namespace {

std::unique_ptr<CCHItem> CopyForUndo(const CCHItem& item) {
    auto copy = item.Copy();
    copy->ForgetStorage();
    return copy;
}

bool IsUnsaved(const CCHItem& item) {
    return item.storeState == StoreState::NotStored && IsStorable(item);
}

}  // namespace

bool CCHQueue::Add(std::unique_ptr<CCHItem> item, std::uint32_t max) {
    if (locked_) {
        waiting_.emplace_back(std::move(item), max);
        return false;
    }
    if (byKey_.contains(item->key)) {
        item->RenewIdentity();
    }
    JoinAside(*item);
    if (const CCHItem* older = FindSame(*item)) {
        item->isProtected = older->isProtected;
        item->id = older->id;
        changes_.push_back(
            {.What = FileChange::Kind::Superseded, .Key = older->key, .Successor = item->key});
        Forget(*older);
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(PositionOf(*older)));
        Append(std::move(item));
    } else {
        Append(std::move(item));
        Trim(max);
    }
    return true;
}

void CCHQueue::JoinAside(const CCHItem& item) {
    std::erase_if(aside_, [&](const AsideItem& aside) {
        const bool isSame = aside.Format == item.format && aside.Hash == item.ContentHash() &&
                            aside.Size == item.Size();
        if (isSame) {
            changes_.push_back(
                {.What = FileChange::Kind::Superseded, .Key = aside.Key, .Successor = item.key});
        }
        return isSame;
    });
}

void CCHQueue::SetLocked(bool locked) {
    locked_ = locked;
    if (locked || waiting_.empty()) {
        return;
    }
    for (auto& [item, max] : std::exchange(waiting_, {})) {
        Add(std::move(item), max);
    }
    if (onArrived_) {
        onArrived_();
    }
}

void CCHQueue::Trim(std::uint32_t max) {
    if (items_.size() <= max) {
        return;
    }
    std::size_t kept = 0;
    for (const auto& item : TakeOut([&](const CCHItem& held) {
             const bool goes = kept >= max && !held.isProtected;
             kept += goes ? 0 : 1;
             return goes;
         })) {
        NoteRemoved(*item);
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
        for (const auto& item : TakeOut([](const CCHItem& held) { return !held.isProtected; })) {
            NoteRemoved(*item);
        }
    }
    for (AsideItem& item : std::exchange(aside_, {})) {
        changes_.push_back({.Key = std::move(item.Key)});
    }
    changes_.push_back({.What = FileChange::Kind::Cleared});
    ++clears_;
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
    for (const auto& item : TakeOut(
             [&](const CCHItem& held) { return indices.contains(index++) && !held.isProtected; })) {
        NoteRemoved(*item);
    }
    return true;
}

bool CCHQueue::Undo() {
    if (undoPool_.empty()) {
        return false;
    }
    UndoRecord record = std::move(undoPool_.back());
    undoPool_.pop_back();
    if (!record.IsPartial) {
        UndoClear(std::move(record.Snapshot));
        return true;
    }
    for (auto& item : record.Snapshot) {
        if (!byKey_.contains(item->key) && !FindSame(*item)) {
            Append(std::move(item));
        }
    }
    return true;
}

void CCHQueue::UndoClear(ItemList snapshot) {
    ItemList since = std::exchange(items_, {});
    std::unordered_map<const CCHItem*, std::size_t> places;
    for (std::size_t i = 0; i < since.size(); ++i) {
        places[since[i].get()] = i;
    }
    for (auto& item : snapshot) {
        const auto found = byKey_.find(item->key);
        if (found != byKey_.end()) {
            // It was protected, and stayed.
            items_.push_back(std::move(since[places[found->second]]));
        } else if (!FindSame(*item)) {
            Append(std::move(item));
        }
    }
    std::erase(since, nullptr);
    std::move(since.begin(), since.end(), std::back_inserter(items_));
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
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second;
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
        changes_.push_back({.What = FileChange::Kind::Protected, .Key = item.key, .On = value});
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
        item.menuCaption.clear();
        item.menuTip.clear();
        item.dataPath.clear();
        item.storeState = StoreState::NotStored;
        ++item.revision;
    }
    return changed;
}

void CCHQueue::Merge(CCHQueue& loaded, std::uint32_t max) {
    for (auto& item : std::exchange(loaded.items_, {})) {
        loaded.Forget(*item);
        const CCHItem* const same = FindSame(*item);
        if (!same) {
            Append(std::move(item));
            continue;
        }
        changes_.push_back(
            {.What = FileChange::Kind::Superseded, .Key = item->key, .Successor = same->key});
        if (item->isProtected) {
            SetProtected(items_.size() - 1 - PositionOf(*same), true);
        }
    }
    SortByTime();
    std::size_t kept = 0;
    for (const auto& item :
         TakeOut([&](const CCHItem& held) { return kept++ >= max && !held.isProtected; })) {
        aside_.push_back({item->key, item->format, item->ContentHash(), item->Size()});
    }
}

void CCHQueue::MergeCleared(CCHQueue& loaded) {
    UndoRecord record{.Snapshot = {}, .IsPartial = true};
    for (const auto& item : loaded.TakeOut([](const CCHItem& held) { return !held.isProtected; })) {
        NoteRemoved(*item);
        record.Snapshot.push_back(CopyForUndo(*item));
    }
    if (!record.Snapshot.empty()) {
        std::reverse(record.Snapshot.begin(), record.Snapshot.end());
        undoPool_.push_back(std::move(record));
    }
    Merge(loaded, kNoItemLimit);
}

ItemList CCHQueue::CopyUnsaved() const {
    ItemList copies;
    for (const auto& item : items_) {
        if (IsUnsaved(*item)) {
            copies.push_back(item->Copy());
        }
    }
    return copies;
}

bool CCHQueue::HasUnsaved() const {
    return std::any_of(items_.begin(), items_.end(),
                       [](const auto& item) { return IsUnsaved(*item); });
}

void CCHQueue::NoteSaved(const CCHItem& saved) {
    const auto found = byKey_.find(saved.key);
    if (found == byKey_.end() || found->second->revision != saved.revision) {
        return;
    }
    CCHItem& item = *found->second;
    item.dataPath = saved.dataPath;
    item.infoPath = saved.infoPath;
    item.storeState = StoreState::Saved;
    for (std::size_t i = 0; i < std::min(item.alternatives.size(), saved.alternatives.size());
         ++i) {
        item.alternatives[i]->dataPath = saved.alternatives[i]->dataPath;
    }
}

void CCHQueue::NoteStored(const CCHItem& stored) {
    if (const std::optional<std::size_t> index = IndexOfId(stored.id)) {
        CCHItem& item = *Stored(*index);
        item.dataPath = stored.dataPath;
        item.storeState = stored.storeState;
    }
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
    byKey_.emplace(items_.back()->key, items_.back().get());
}

void CCHQueue::Unindex(const CCHItem& item) {
    const auto [begin, end] = byContent_.equal_range(item.ContentHash());
    const auto found =
        std::find_if(begin, end, [&item](const auto& entry) { return entry.second == &item; });
    if (found != end) {
        byContent_.erase(found);
    }
}

void CCHQueue::Forget(const CCHItem& item) {
    Unindex(item);
    byKey_.erase(item.key);
}

ItemList CCHQueue::TakeOut(const std::function<bool(const CCHItem&)>& goes) {
    ItemList gone;
    ItemList kept;
    kept.reserve(items_.size());
    for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
        const bool out = goes(**item);
        if (out) {
            Forget(**item);
        }
        (out ? gone : kept).push_back(std::move(*item));
    }
    std::reverse(kept.begin(), kept.end());
    items_ = std::move(kept);
    return gone;
}

}  // namespace vbr

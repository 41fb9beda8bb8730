// SPDX-License-Identifier: MIT
#include "history/history_saver.h"

#include <utility>

namespace vbr {
namespace {

constexpr std::uint32_t kSaveDelayMs = 1000;

}  // namespace

void HistorySaver::NoteChange() {
    const std::lock_guard lock(mutex_);
    pending_ = true;
}

void HistorySaver::RequestSave(std::uint32_t tick) {
    NoteChange();
    requestTick_ = tick;
}

bool HistorySaver::IsDue(std::uint32_t tick) const {
    return tick - requestTick_ > kSaveDelayMs;
}

void HistorySaver::Save() {
    {
        const std::lock_guard lock(mutex_);
        if (running_ > 0) {
            again_ = pending_ = true;
            return;
        }
    }
    Begin();
}

void HistorySaver::SaveRest() {
    {
        const std::lock_guard lock(mutex_);
        if (!pending_) {
            return;
        }
    }
    Begin();
}

void HistorySaver::SaveForHangingThread() {
    ItemList items = with_.IsOn ? with_.Queue.CopyUnsaved() : ItemList();
    std::erase_if(items, [this](const auto& item) { return IsWritten(*item); });
    with_.Worker.SaveNow(items);
}

void HistorySaver::Begin() {
    ItemList untold;
    {
        const std::lock_guard lock(mutex_);
        pending_ = again_ = false;
        ++running_;
        untold.swap(untold_);
    }
    for (const auto& item : untold) {
        with_.Queue.NoteSaved(*item);
    }
    ItemList copies = with_.IsOn ? with_.Queue.CopyUnsaved() : ItemList();
    if (copies.empty()) {
        OnEnd(true);
        return;
    }
    with_.Worker.Save(std::move(copies),
                      {.IsWritten = [this](const CCHItem& item) { return IsWritten(item); },
                       .OnSaved = [this](const CCHItem& item) { OnSaved(item); },
                       .OnEnd = [this](bool complete) { OnEnd(complete); }});
}

bool HistorySaver::IsWritten(const CCHItem& item) {
    const std::lock_guard lock(mutex_);
    return written_.contains({item.key, item.revision});
}

void HistorySaver::OnSaved(const CCHItem& item) {
    {
        const std::lock_guard lock(mutex_);
        written_.emplace(item.key, item.revision);
    }
    if (!with_.TellSaved(item)) {
        const std::lock_guard lock(mutex_);
        untold_.push_back(item.Copy());
    }
}

void HistorySaver::OnEnd(bool complete) {
    bool ask = false;
    {
        const std::lock_guard lock(mutex_);
        if (--running_ == 0) {
            written_.clear();
        }
        // A full disk, say: the next save takes the others along, at the latest the last one.
        pending_ = pending_ || !complete;
        ask = std::exchange(again_, false);
    }
    if (ask) {
        with_.AskForSave();
    }
}

}  // namespace vbr

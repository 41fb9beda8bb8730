// SPDX-License-Identifier: MIT
#include "history/history_saver.h"

#include <algorithm>
#include <utility>

namespace vbr {
namespace {

constexpr std::uint32_t kSaveDelayMs = 1000;

// The pause after a failure doubles with each.
constexpr std::uint32_t kFirstRetryMs = 500;
constexpr std::uint32_t kLongestRetryMs = 5 * 60 * 1000;
constexpr int kMostDoublings = 16;
// By then some eight seconds have gone by, in which another program is done with a file.
constexpr int kFailuresToTell = 5;

}  // namespace

void HistorySaver::Load() {
    {
        const std::lock_guard lock(mutex_);
        if (loading_ == Loading::UnderWay || loading_ == Loading::Done) {
            return;
        }
        loading_ = Loading::UnderWay;
    }
    clearsAtLoad_ = with_.Queue.ClearCount();
    with_.Worker.Load({.OnLoaded =
                           [this](std::shared_ptr<CCHQueue> loaded) {
                               if (!with_.TellLoaded(*loaded)) {
                                   const std::lock_guard lock(mutex_);
                                   untoldLoad_ = std::move(loaded);
                               }
                           },
                       .OnEnd =
                           [this](bool read) {
                               {
                                   const std::lock_guard lock(mutex_);
                                   loading_ = read ? Loading::Done : Loading::Failed;
                               }
                               if (!read) {
                                   NoteOutcome(false);
                               }
                               with_.TellEnded();
                           }});
}

void HistorySaver::Merge(CCHQueue& loaded) {
    if (with_.Queue.ClearCount() != clearsAtLoad_) {
        with_.Queue.MergeCleared(loaded);
    } else {
        with_.Queue.Merge(loaded, with_.MaxItems);
    }
}

bool HistorySaver::IsDue(std::uint32_t tick) const {
    return tick - requestTick_ > kSaveDelayMs;
}

void HistorySaver::Save() {
    bool loadsAgain = false;
    {
        const std::lock_guard lock(mutex_);
        if (running_ > 0) {
            again_ = true;
            return;
        }
        loadsAgain = loading_ == Loading::Failed;
    }
    if (loadsAgain) {
        Load();
    }
    Begin();
}

bool HistorySaver::SaveRest() {
    const bool isLeft = IsAnythingLeft();
    if (isLeft) {
        Begin();
    }
    return isLeft;
}

bool HistorySaver::IsAnythingLeft() {
    NoteUntold();
    {
        const std::lock_guard lock(mutex_);
        if (failures_ > 0) {
            return true;
        }
    }
    return with_.Queue.HasFileChanges() || (with_.IsOn && with_.Queue.HasUnsaved());
}

void HistorySaver::SaveForHangingThread() {
    with_.Worker.SaveNow(TakeOrder());
}

HistoryWorker::Order HistorySaver::TakeOrder() {
    return {with_.Queue.TakeFileChanges(), with_.IsOn ? with_.Queue.CopyUnsaved() : ItemList()};
}

void HistorySaver::NoteUntold() {
    ItemList untold;
    std::shared_ptr<CCHQueue> loaded;
    {
        const std::lock_guard lock(mutex_);
        untold.swap(untold_);
        loaded.swap(untoldLoad_);
    }
    if (loaded && !with_.Queue.IsLocked()) {
        Merge(*loaded);
    } else if (loaded) {
        const std::lock_guard lock(mutex_);
        untoldLoad_ = std::move(loaded);
    }
    for (const auto& item : untold) {
        with_.Queue.NoteSaved(*item);
    }
}

void HistorySaver::Begin() {
    NoteUntold();
    {
        const std::lock_guard lock(mutex_);
        again_ = false;
        ++running_;
    }
    with_.Worker.Save(TakeOrder(), {.OnSaved = [this](const CCHItem& item) { OnSaved(item); },
                                    .OnEnd = [this](bool complete) { OnEnd(complete); }});
}

void HistorySaver::OnSaved(const CCHItem& item) {
    if (!with_.TellSaved(item)) {
        const std::lock_guard lock(mutex_);
        untold_.push_back(item.Copy());
    }
}

void HistorySaver::OnEnd(bool complete) {
    NoteOutcome(complete);
    {
        const std::lock_guard lock(mutex_);
        --running_;
    }
    with_.TellEnded();
}

void HistorySaver::NoteOutcome(bool complete) {
    const std::lock_guard lock(mutex_);
    failures_ = complete && loading_ != Loading::Failed ? 0 : failures_ + 1;
}

SaveState HistorySaver::State() const {
    const std::lock_guard lock(mutex_);
    SaveState state{.IsWanted = again_ && running_ == 0, .RetryAfter = {}, .IsFailing = false};
    if (failures_ > 0) {
        const int doublings = std::min(failures_ - 1, kMostDoublings);
        state.RetryAfter = std::min(kFirstRetryMs << doublings, kLongestRetryMs);
        state.IsFailing = failures_ >= kFailuresToTell;
    }
    return state;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "history/history_worker.h"

#include <utility>

#include "history/history_queue.h"

namespace vbr {
namespace {

constexpr std::uint32_t kGuardPatienceMs = 200;

}  // namespace

void HistoryWorker::Save(ItemList items, SaveCalls calls) {
    // A job must be copyable.
    worker_.Post([this, shared = std::make_shared<ItemList>(std::move(items)),
                  told = std::move(calls)] { told.OnEnd(WaitForGuard() && Write(*shared, told)); });
}

bool HistoryWorker::Write(ItemList& items, const SaveCalls& calls) {
    std::erase_if(items, [&calls](const auto& item) { return calls.IsWritten(*item); });
    std::size_t left = items.size();
    Guarded([&] {
        if (folder_.Make()) {
            folder_.Save(items, [&](const CCHItem& item) {
                --left;
                calls.OnSaved(item);
            });
        }
    });
    return left == 0;
}

void HistoryWorker::SaveNow(const ItemList& items) {
    if (!items.empty() && folder_.Make()) {
        folder_.Save(items, [](const CCHItem&) {});
    }
}

void HistoryWorker::Load(OnLoaded onLoaded) {
    // Another holder of the guard delays a save, never a load.
    worker_.Post([this, call = std::move(onLoaded)] {
        Guarded([&] {
            CCHQueue loaded(folder_);
            folder_.Load(loaded);
            if (loaded.GetCount() > 0) {
                call(loaded);
            }
        });
    });
}

void HistoryWorker::Guarded(const std::function<void()>& work) {
    if (guard_) {
        guard_->Reset();
    }
    work();
    if (guard_) {
        guard_->Set();
    }
}

bool HistoryWorker::WaitForGuard() {
    while (guard_ && guard_->Wait(kGuardPatienceMs) == WaitResult::TimedOut) {
        if (worker_.IsEnding()) {
            return false;
        }
    }
    return true;
}

}  // namespace vbr

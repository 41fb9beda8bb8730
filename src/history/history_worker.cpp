// SPDX-License-Identifier: MIT
#include "history/history_worker.h"

#include <utility>

#include "history/history_queue.h"

namespace vbr {
namespace {

constexpr std::uint32_t kGuardPatienceMs = 200;

}  // namespace

void HistoryWorker::Save(Order order, SaveCalls calls) {
    // A job must be copyable.
    worker_.Post([this, shared = std::make_shared<Order>(std::move(order)),
                  told = std::move(calls)] {
        // What happened is to be known even if nothing can be done about it now.
        bool complete = false;
        if (WaitForGuard()) {
            Guarded([&] { complete = folder_.Save(shared->Changes, shared->Items, told.OnSaved); });
        } else {
            folder_.Note(shared->Changes, shared->Items);
        }
        told.OnEnd(complete);
    });
}

void HistoryWorker::SaveNow(const Order& order) {
    folder_.Save(order.Changes, order.Items, [](const CCHItem&) {});
}

void HistoryWorker::Load(LoadCalls calls) {
    // Another holder of the guard delays a save, never a load.
    worker_.Post([this, told = std::move(calls)] {
        bool read = false;
        Guarded([&] {
            const auto loaded = std::make_shared<CCHQueue>();
            read = folder_.Load(*loaded);
            if (loaded->GetCount() > 0) {
                told.OnLoaded(loaded);
            }
        });
        told.OnEnd(read);
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
    const auto giveUp = std::chrono::steady_clock::now() + patience_.Time;
    while (guard_ && guard_->Wait(kGuardPatienceMs) == WaitResult::TimedOut) {
        if (worker_.IsEnding()) {
            return false;
        }
        if (std::chrono::steady_clock::now() >= giveUp) {
            guard_.reset();
            patience_.OnGivenUp();
        }
    }
    return true;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "history/history_worker.h"

#include <system_error>
#include <thread>
#include <utility>

namespace vbr {
namespace {

constexpr std::uint32_t kGuardPatienceMs = 200;

}  // namespace

HistoryWorker::~HistoryWorker() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    Flush();
}

void HistoryWorker::Save(ItemList items, OnSaved onSaved, OnEnd onEnd) {
    Start({std::move(items), std::move(onSaved), std::move(onEnd), nullptr});
}

void HistoryWorker::Load(OnLoaded onLoaded) {
    Start({{}, nullptr, nullptr, std::move(onLoaded)});
}

void HistoryWorker::Flush() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return !busy_; });
}

void HistoryWorker::Start(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        if (busy_) {
            return;
        }
        busy_ = true;
    }
    try {
        std::thread([this] { RunAll(); }).detach();
    } catch (const std::system_error&) {
        RunAll();
    }
}

void HistoryWorker::RunAll() {
    std::unique_lock lock(mutex_);
    while (!jobs_.empty()) {
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        Run(job);
        if (job.Ended) {
            job.Ended();
        }
        lock.lock();
    }
    busy_ = false;
    idle_.notify_all();
}

void HistoryWorker::Run(const Job& job) {
    // Another holder of the guard delays a save, never a load.
    if (job.Saved && !WaitForGuard()) {
        return;
    }
    if (guard_) {
        guard_->Reset();
    }
    if (job.Loaded) {
        CCHQueue loaded(folder_);
        folder_.Load(loaded);
        if (loaded.GetCount() > 0) {
            job.Loaded(loaded);
        }
    } else if (folder_.Make()) {
        folder_.Save(job.Items, job.Saved);
    }
    if (guard_) {
        guard_->Set();
    }
}

bool HistoryWorker::WaitForGuard() {
    while (guard_ && guard_->Wait(kGuardPatienceMs) == WaitResult::TimedOut) {
        const std::lock_guard lock(mutex_);
        if (ending_) {
            return false;
        }
    }
    return true;
}

}  // namespace vbr

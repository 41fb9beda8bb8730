// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "history/history_folder.h"
#include "platform/named_objects.h"

namespace vbr {

// Saves and loads the history without making the caller wait: one job at a time and in order, on a
// thread that lives as long as there is something to do. The guard event is reset meanwhile.
class HistoryWorker {
  public:
    // On the worker's thread.
    using OnSaved = std::function<void(const CCHItem&)>;
    using OnLoaded = std::function<void(CCHQueue&)>;
    using OnEnd = std::function<void()>;

    // Without a guard nobody else is told.
    HistoryWorker(HistoryFolder& folder, std::unique_ptr<NamedEvent> guard)
        : folder_(folder), guard_(std::move(guard)) {}

    // Waits for the end of the job under way and of those that wait.
    ~HistoryWorker();
    HistoryWorker(const HistoryWorker&) = delete;
    HistoryWorker& operator=(const HistoryWorker&) = delete;

    // Writes the items and calls for each that was written, and at the end.
    void Save(ItemList items, OnSaved onSaved, OnEnd onEnd);
    // Reads the folder and calls once, when it held anything.
    void Load(OnLoaded onLoaded);

    void Flush();

  private:
    struct Job {
        ItemList Items;
        OnSaved Saved;
        OnEnd Ended;
        OnLoaded Loaded;
    };

    void Start(Job job);
    void RunAll();
    void Run(const Job& job);
    bool WaitForGuard();

    HistoryFolder& folder_;
    std::unique_ptr<NamedEvent> guard_;
    std::mutex mutex_;
    std::condition_variable idle_;
    std::deque<Job> jobs_;
    bool busy_ = false;
    bool ending_ = false;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace vbr {

// Runs jobs one at a time and in order without making the caller wait, on a thread that lives as
// long as there is something to do. Any thread may call, a job too.
class SerialWorker {
  public:
    SerialWorker() = default;
    // Waits for the end of all jobs.
    ~SerialWorker();
    SerialWorker(const SerialWorker&) = delete;
    SerialWorker& operator=(const SerialWorker&) = delete;

    // Without a thread the job runs here.
    void Post(std::function<void()> job);

    // Waits until there is nothing to do. Not from within a job.
    void Flush();

    // Set while there is something to do; outlives the worker. Any thread may look.
    using BusyFlag = std::shared_ptr<const std::atomic<bool>>;
    BusyFlag Busy() const { return busy_; }

    // Whether the destructor waits. A job that waits for something asks this from time to time.
    bool IsEnding() const { return ending_; }

  private:
    void RunAll();

    std::mutex mutex_;
    std::condition_variable idle_;
    std::deque<std::function<void()>> jobs_;
    std::shared_ptr<std::atomic<bool>> busy_ = std::make_shared<std::atomic<bool>>(false);
    std::atomic<bool> ending_ = false;
    std::thread thread_;  // ended unless busy, but not joined yet
};

}  // namespace vbr

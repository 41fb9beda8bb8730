// SPDX-License-Identifier: MIT
#include "platform/serial_worker.h"

#include <system_error>
#include <utility>

namespace vbr {

SerialWorker::~SerialWorker() {
    ending_ = true;
    Flush();
    // What the thread does after it has told that it is idle may touch this object too.
    if (thread_.joinable()) {
        thread_.join();
    }
}

void SerialWorker::Post(std::function<void()> job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        if (*busy_) {
            return;
        }
        *busy_ = true;
        try {
            if (thread_.joinable()) {
                thread_.join();
            }
            thread_ = std::thread([this] { RunAll(); });
            return;
        } catch (const std::system_error&) {
        }
    }
    RunAll();
}

void SerialWorker::Flush() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return !*busy_; });
}

void SerialWorker::RunAll() {
    std::unique_lock lock(mutex_);
    while (!jobs_.empty()) {
        {
            const std::function<void()> job = std::move(jobs_.front());
            jobs_.pop_front();
            lock.unlock();
            job();
        }
        lock.lock();
    }
    *busy_ = false;
    idle_.notify_all();
}

}  // namespace vbr

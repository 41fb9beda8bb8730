// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace vbr {

// Short calls on threads of their own. The destructor waits for all of them; what they wait for
// must be signalled before. Any thread may start one.
class TaskThreads {
  public:
    TaskThreads() = default;
    ~TaskThreads() {
        for (Task& task : tasks_) {
            task.Thread.join();
        }
    }
    TaskThreads(const TaskThreads&) = delete;
    TaskThreads& operator=(const TaskThreads&) = delete;

    // False when there is no thread for it.
    bool Start(std::function<void()> call) {
        const std::lock_guard lock(mutex_);
        JoinEnded();
        Task& task = tasks_.emplace_back();
        try {
            task.Thread = std::thread([&task, work = std::move(call)] {
                work();
                task.Ended = true;
            });
        } catch (const std::system_error&) {
            tasks_.pop_back();
            return false;
        }
        return true;
    }

  private:
    struct Task {
        std::thread Thread;
        std::atomic<bool> Ended = false;
    };

    void JoinEnded() {
        tasks_.remove_if([](Task& task) {
            if (task.Ended) {
                task.Thread.join();
            }
            return !task.Thread.joinable();
        });
    }

    std::mutex mutex_;
    std::list<Task> tasks_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/serial_worker.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <semaphore>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace vbr {
namespace {

// While this lives no thread can be made, since none would have room for its stack.
class NoThreads {
  public:
    NoThreads() {
        pthread_getattr_default_np(&before_);
        pthread_attr_t huge = before_;
        pthread_attr_setstacksize(&huge, std::size_t{1} << 50);
        pthread_setattr_default_np(&huge);
    }
    ~NoThreads() { pthread_setattr_default_np(&before_); }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

  private:
    pthread_attr_t before_;
};

// Nothing in these tests guards `order`: the worker itself must keep one job from another.

TEST(SerialWorker, JobsOfManyThreadsRunOneAtATimeAndEachOnesInOrder) {
    std::vector<std::pair<int, int>> order;
    SerialWorker worker;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < 100; ++i) {
                worker.Post([&order, thread, i] { order.emplace_back(thread, i); });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    worker.Flush();
    ASSERT_EQ(order.size(), 300U);
    std::vector<int> next(3);
    for (const auto& [thread, i] : order) {
        EXPECT_EQ(i, next[static_cast<std::size_t>(thread)]++);
    }
}

TEST(SerialWorker, TheCallerGoesOnWhileAJobRunsAndAJobMayPostTheNext) {
    std::vector<int> order;
    std::binary_semaphore mayGoOn(0);
    SerialWorker worker;
    worker.Post([&] {
        mayGoOn.acquire();
        worker.Post([&order] { order.push_back(3); });
        order.push_back(1);
    });
    worker.Post([&order] { order.push_back(2); });
    mayGoOn.release();
    worker.Flush();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(SerialWorker, WorksAgainAfterEachTimeItHadNothingToDo) {
    int runs = 0;
    SerialWorker worker;
    for (int i = 1; i <= 50; ++i) {
        worker.Post([&runs] { ++runs; });
        worker.Flush();
        EXPECT_EQ(runs, i);
    }
}

TEST(SerialWorker, WithoutAThreadTheJobsRunInTheCaller) {
    const NoThreads none;
    ASSERT_THROW(std::thread([] {}).join(), std::system_error);
    std::vector<int> order;
    SerialWorker worker;
    worker.Post([&] {
        worker.Post([&order] { order.push_back(2); });
        order.push_back(1);
    });
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    worker.Flush();
}

TEST(SerialWorker, ItsEndTellsTheJobsThatWaitAndRunsAllThatAreLeft) {
    int runs = 0;
    {
        SerialWorker worker;
        for (int i = 0; i < 2; ++i) {
            worker.Post([&] {
                while (!worker.IsEnding()) {
                    std::this_thread::yield();
                }
                ++runs;
            });
        }
    }
    EXPECT_EQ(runs, 2);
}

}  // namespace
}  // namespace vbr

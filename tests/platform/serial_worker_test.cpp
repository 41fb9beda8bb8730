// SPDX-License-Identifier: MIT
#include "platform/serial_worker.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <pthread.h>
#include <semaphore>
#include <system_error>
#include <thread>
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

// Nothing in these tests guards what the jobs write: the worker itself must keep one job from
// another.

TEST(SerialWorker, JobsOfManyThreadsRunOneAtATimeAndEachOnesInOrder) {
    std::vector<int> order[3];
    std::vector<int> all;
    SerialWorker worker;
    std::vector<std::thread> threads;
    for (std::vector<int>& own : order) {
        threads.emplace_back([&] {
            for (int i = 0; i < 100; ++i) {
                worker.Post([&own, &all, i] {
                    own.push_back(i);
                    all.push_back(i);
                });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    worker.Flush();
    EXPECT_EQ(all.size(), 300U);
    for (const std::vector<int>& own : order) {
        EXPECT_TRUE(std::ranges::is_sorted(own));
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

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/my_copy.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

class MyCopy : public testing::Test {
  protected:
    // Whether the block held all that time, and no longer.
    bool HoldsFor(std::uint32_t milliseconds) {
        clock_.Tick += milliseconds - 1;
        const bool held = guard_.IsMyCopy();
        clock_.Tick += 1;
        return held && !guard_.IsMyCopy();
    }

    FakeClock clock_;
    MemoryLog log_;
    MyCopyGuard guard_{clock_, log_};
};

TEST_F(MyCopy, ABlockHoldsForItsTimeAndIsOver) {
    for (const std::uint32_t start : {0U, 5U, 0xFFFFFFFFU - MyCopyGuard::kBlockMs, 0xFFFFFFFFU}) {
        clock_.Tick = start;
        guard_.AsynBlockClipboardHandler();
        EXPECT_TRUE(HoldsFor(MyCopyGuard::kBlockMs)) << start;
        clock_.Tick = start;  // the tick count has come round
        EXPECT_FALSE(guard_.IsMyCopy()) << start;
    }
}

TEST_F(MyCopy, OfBlocksThatOverlapTheLaterEndCounts) {
    guard_.AsynBlockClipboardHandler();
    // Two seconds, and weeks in which nobody asked.
    for (const std::uint32_t later : {2'000U, 0xA0000000U}) {
        clock_.Tick += later;
        guard_.AsynBlockClipboardHandler();
        clock_.Tick -= 10;  // a thread that read the clock before and was overtaken
        guard_.AsynBlockClipboardHandler();
        clock_.Tick += 10;
        EXPECT_TRUE(HoldsFor(MyCopyGuard::kBlockMs));
        guard_.AsynBlockClipboardHandler();
    }
}

TEST_F(MyCopy, AnOutsideEndTakesTheBlockBeforeTheCount) {
    guard_.Add();
    guard_.AsynBlockClipboardHandler();
    guard_.EndBlock();
    EXPECT_TRUE(guard_.IsMyCopy());
    for (int i = 0; i < 2; ++i) {  // without a count it takes nothing
        guard_.EndBlock();
        EXPECT_FALSE(guard_.IsMyCopy());
    }
}

TEST_F(MyCopy, AnExchangeRepairsTheCountAndDropsTheBlock) {
    guard_.Subtract();
    EXPECT_TRUE(guard_.IsMyCopy());
    guard_.AsynBlockClipboardHandler();
    guard_.Set(0);
    EXPECT_FALSE(guard_.IsMyCopy());
}

TEST_F(MyCopy, ThreadsLeaveItAsItWas) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int round = 0; round < 200; ++round) {
                const MyCopyScope scope(guard_);
                EXPECT_TRUE(guard_.IsMyCopy());
                guard_.AsynBlockClipboardHandler();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(HoldsFor(MyCopyGuard::kBlockMs));
}

}  // namespace
}  // namespace vbr

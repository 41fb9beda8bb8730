// SPDX-License-Identifier: MIT
#include "platform/my_copy.h"

#include <gtest/gtest.h>
#include <optional>
#include <thread>
#include <vector>

#include "fakes/fake_clipboard_access.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

constexpr std::uint32_t kOther = 7;

class MyCopy : public testing::Test {
  protected:
    void CopyOfOther(std::uint32_t process = kOther) {
        clipboard_.Copy({FakeClipboardAccess::Text(u"theirs")});
        clipboard_.Owner = process;
    }
    void OwnCopy() {
        const MyCopyScope scope(guard_, clipboard_);
        clipboard_.Open(0)->Empty();
        EXPECT_TRUE(guard_.IsMyCopy());
    }

    MemoryLog log_;
    FakeClipboardAccess clipboard_;
    MyCopyGuard guard_{clipboard_, FakeClipboardAccess::kOwnProcess, log_};
};

TEST_F(MyCopy, IsKnownByTheClipboardsNumberAndOwner) {
    EXPECT_FALSE(guard_.IsOwnContent());
    OwnCopy();
    EXPECT_FALSE(guard_.IsMyCopy());
    EXPECT_TRUE(guard_.IsOwnContent());
    clipboard_.Owner = 0;  // the window is gone
    EXPECT_TRUE(guard_.IsOwnContent());
    clipboard_.Owner = kOther;  // it copied before the number was noted
    EXPECT_FALSE(guard_.IsOwnContent());
    CopyOfOther();
    EXPECT_FALSE(guard_.IsOwnContent());
    // What the program copies so that it is kept.
    clipboard_.Open(0)->Empty();
    EXPECT_FALSE(guard_.IsOwnContent());
}

TEST_F(MyCopy, AScopeThatCopiesNothingTakesNothing) {
    CopyOfOther(0);
    { const MyCopyScope scope(guard_, clipboard_); }
    EXPECT_FALSE(guard_.IsOwnContent());
}

TEST_F(MyCopy, ACopyThatTheProgramAskedForIsItsOwn) {
    guard_.ExpectCopyOf(kOther);
    CopyOfOther();
    EXPECT_TRUE(guard_.IsOwnContent());
    CopyOfOther(kOther + 1);
    EXPECT_FALSE(guard_.IsOwnContent());
    guard_.ExpectNoCopy();
    CopyOfOther();
    EXPECT_FALSE(guard_.IsOwnContent());
}

TEST_F(MyCopy, AnOutsidersBracketsHoldAndItsSingleStepsRepairTheCount) {
    guard_.StartBracket();
    EXPECT_TRUE(guard_.IsMyCopy());
    CopyOfOther();
    guard_.EndBracket();
    EXPECT_FALSE(guard_.IsMyCopy());
    EXPECT_TRUE(guard_.IsOwnContent());
    CopyOfOther();
    EXPECT_FALSE(guard_.IsOwnContent());
    guard_.Add();
    for (int i = 0; i < 2; ++i) {  // without a count it takes nothing
        guard_.EndBlock();
        EXPECT_FALSE(guard_.IsMyCopy());
    }
}

TEST_F(MyCopy, ThreadsLeaveItAsItWas) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int round = 0; round < 200; ++round) {
                const MyCopyScope scope(guard_, clipboard_);
                EXPECT_TRUE(guard_.IsMyCopy());
                EXPECT_FALSE(guard_.IsOwnContent());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(guard_.IsMyCopy());
}

}  // namespace
}  // namespace vbr

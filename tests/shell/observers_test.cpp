// SPDX-License-Identifier: MIT
#include "shell/observers.h"

#include <functional>
#include <gtest/gtest.h>

#include "shell/choice_block.h"

namespace vbr {
namespace {

struct Follower : KeepObserver {
    void OnKeepChanged(bool) override {
        ++Calls;
        OnCall();
    }
    int Calls = 0;
    std::function<void()> OnCall = [] {};
};

TEST(Observers, AllAreToldButTheSenderAndThoseWhoLeftMeanwhile) {
    ObserverList<KeepObserver> list;
    Follower first;
    Follower sender;
    Follower leaving;
    for (Follower* follower : {&first, &sender, &leaving}) {
        list.Add(*follower);
    }
    const auto announce = [&] {
        list.Announce([](KeepObserver& o) { o.OnKeepChanged(true); }, &sender);
    };
    announce();
    first.OnCall = [&] { list.Remove(leaving); };
    announce();
    EXPECT_EQ(first.Calls, 2);
    EXPECT_EQ(sender.Calls, 0);
    EXPECT_EQ(leaving.Calls, 1);
}

TEST(ChoiceBlock, NeedsChoiceAndTarget) {
    std::vector<std::byte> block(138);
    block[0] = std::byte{0xFC};
    block[1] = block[2] = block[3] = std::byte{0xFF};
    block[134] = std::byte{0x34};
    block[135] = std::byte{0x12};
    const auto choice = ReadChoiceBlock(block);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Choice, -4);
    EXPECT_EQ(choice->Target, 0x1234U);
    block.pop_back();
    EXPECT_FALSE(ReadChoiceBlock(block));
    EXPECT_FALSE(ReadChoiceBlock({}));
}

}  // namespace
}  // namespace vbr

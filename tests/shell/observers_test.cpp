// SPDX-License-Identifier: MIT
#include "shell/observers.h"

#include <gtest/gtest.h>

#include "shell/choice_block.h"

namespace vbr {
namespace {

struct Follower : KeepObserver {
    void OnKeepChanged(bool spyRuns) override {
        ++Calls;
        Last = spyRuns;
        if (RemoveOnCall) {
            List->Remove(*RemoveOnCall);
        }
    }
    int Calls = 0;
    bool Last = false;
    ObserverList<KeepObserver>* List = nullptr;
    KeepObserver* RemoveOnCall = nullptr;
};

TEST(Observers, AllButTheSenderAreTold) {
    ObserverList<KeepObserver> list;
    Follower first;
    Follower sender;
    list.Add(first);
    list.Add(sender);
    list.Announce([](KeepObserver& o) { o.OnKeepChanged(true); }, &sender);
    EXPECT_TRUE(first.Last);
    EXPECT_EQ(sender.Calls, 0);
}

TEST(Observers, OneThatLeavesWhileOthersAreToldIsNotCalledAnyMore) {
    ObserverList<KeepObserver> list;
    Follower first;
    Follower second;
    list.Add(first);
    list.Add(second);
    first.List = &list;
    first.RemoveOnCall = &second;
    list.Announce([](KeepObserver& o) { o.OnKeepChanged(false); });
    EXPECT_EQ(first.Calls, 1);
    EXPECT_EQ(second.Calls, 0);
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

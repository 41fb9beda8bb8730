// SPDX-License-Identifier: MIT
#include "exchange/clipboard_snapshot.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_clipboard_access.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ClipboardSnapshotTest : public testing::Test {
  protected:
    void SetUp() override { clipboard_.Copy({FakeClipboardAccess::Text(u"mine")}); }

    void CopyElsewhere() { clipboard_.Copy({FakeClipboardAccess::Text(u"other")}); }
    bool Holds(const std::u16string& text) const {
        const ClipboardBlock* block = clipboard_.Find(kClipUnicodeText);
        return block && block->Bytes == FakeClipboardAccess::Text(text).Bytes;
    }

    Journal calls_;
    FakeClipboardAccess clipboard_{&calls_};
    MemoryLog log_;
    CClipboardSnapshot snapshot_{clipboard_, log_};
};

TEST_F(ClipboardSnapshotTest, GivesEveryFormatBackInItsOrderAndOnce) {
    const ClipboardBlock bitmap{.Format = kClipBitmap, .Object = std::make_shared<int>(7)};
    clipboard_.Copy({FakeClipboardAccess::Text(u"mine"),
                     clipboard_.Named(u"Rich Text Format", {"{\\rtf1\0\xFF tail", 13}), bitmap,
                     clipboard_.Named(u"A mark without data", ""),
                     FakeClipboardAccess::Memory(kClipText, "min")});
    const std::vector<ClipboardBlock> content = clipboard_.Blocks;
    EXPECT_TRUE(snapshot_.Take());
    CopyElsewhere();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    ASSERT_EQ(clipboard_.Blocks.size(), content.size());
    for (std::size_t i = 0; i < content.size(); ++i) {
        EXPECT_EQ(clipboard_.Blocks[i].Format, content[i].Format);
        EXPECT_EQ(clipboard_.Blocks[i].Bytes, content[i].Bytes);
        EXPECT_EQ(clipboard_.Blocks[i].Object, content[i].Object);
    }
    EXPECT_THAT(log_.Lines, IsEmpty());
    CopyElsewhere();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"other"));
}

TEST_F(ClipboardSnapshotTest, NothingIsEmptiedWithoutSomethingToPutBack) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"never taken", [] {}},
        {"held when an older one was there",
         [this] {
             snapshot_.Take();
             clipboard_.FailingOpens = 1;
             EXPECT_FALSE(snapshot_.Take());
         }},
        {"an empty clipboard",
         [this] {
             clipboard_.Copy({});
             EXPECT_TRUE(snapshot_.Take());
         }},
        {"an owner that hangs from the start",
         [this] {
             clipboard_.ReadsUntilOwnerHangs = 0;
             EXPECT_FALSE(snapshot_.Take());
         }},
        {"data of the program's own",
         [this] {
             EXPECT_TRUE(snapshot_.Take());
             snapshot_.ClearRestore();
         }},
    };
    for (const auto& [name, prepare] : cases) {
        SCOPED_TRACE(name);
        clipboard_.Copy({FakeClipboardAccess::Text(u"mine")});
        prepare();
        CopyElsewhere();
        EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
        EXPECT_TRUE(Holds(u"other"));
        EXPECT_THAT(calls_, Not(Contains("empty")));
    }
}

TEST_F(ClipboardSnapshotTest, AClipboardThatDidNotChangeIsLeftToItsOwner) {
    snapshot_.Take();
    snapshot_.RestoreClipboardSnapshot();
    EXPECT_THAT(calls_, Not(Contains("empty")));

    // A program that may not know the number can't tell.
    clipboard_.Sequence = 0;
    snapshot_.Take();
    clipboard_.Blocks.clear();
    snapshot_.RestoreClipboardSnapshot();
    EXPECT_TRUE(Holds(u"mine"));
}

TEST_F(ClipboardSnapshotTest, AHungOwnerIsAskedForNothingMore) {
    clipboard_.Copy({FakeClipboardAccess::Memory(kClipText, "min"),
                     FakeClipboardAccess::Text(u"mine"), FakeClipboardAccess::Memory(16, "l"),
                     FakeClipboardAccess::Memory(kClipDib, "d")});
    clipboard_.ReadsUntilOwnerHangs = 2;
    EXPECT_FALSE(snapshot_.Take());
    EXPECT_THAT(calls_, ElementsAre("open 250", "ask 200", "read 1", "ask 200", "read 13",
                                    "ask 200", "close"));
    CopyElsewhere();
    snapshot_.RestoreClipboardSnapshot();
    EXPECT_TRUE(Holds(u"mine"));
}

TEST_F(ClipboardSnapshotTest, AFormatThatFailsCostsOnlyItself) {
    const ClipboardBlock unread = clipboard_.Named(u"Unread", "1");
    const ClipboardBlock refused = clipboard_.Named(u"Refused", "2");
    clipboard_.Copy({unread, refused, FakeClipboardAccess::Text(u"mine")});
    clipboard_.Unreadable = {unread.Format};
    clipboard_.Refused = {refused.Format};
    snapshot_.Take();
    CopyElsewhere();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"mine"));
    EXPECT_EQ(clipboard_.Blocks.size(), 1U);
    EXPECT_THAT(log_.Lines, testing::SizeIs(2));
}

TEST_F(ClipboardSnapshotTest, WhatCouldNotBePutBackWaitsUnlessNewDataComes) {
    for (const bool newData : {false, true}) {
        SCOPED_TRACE(newData);
        clipboard_.Copy({FakeClipboardAccess::Text(u"mine")});
        snapshot_.Take();
        CopyElsewhere();
        clipboard_.FailingOpens = 1;
        EXPECT_FALSE(snapshot_.RestoreClipboardSnapshot());
        EXPECT_TRUE(Holds(u"other"));
        if (newData) {
            clipboard_.Copy({FakeClipboardAccess::Text(u"newest")});
        }
        EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
        EXPECT_TRUE(Holds(newData ? u"newest" : u"mine"));
    }
}

TEST_F(ClipboardSnapshotTest, TheLastOneTakenGoesBackAtTheEnd) {
    {
        CClipboardSnapshot snapshot(clipboard_, log_);
        snapshot.Take();
        clipboard_.Copy({FakeClipboardAccess::Text(u"later")});
        snapshot.Take();
        CopyElsewhere();
    }
    EXPECT_TRUE(Holds(u"later"));
}

}  // namespace
}  // namespace vbr

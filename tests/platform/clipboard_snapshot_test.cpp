// SPDX-License-Identifier: MIT
#include "platform/clipboard_snapshot.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_clipboard_access.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class ClipboardSnapshotTest : public testing::Test {
  protected:
    void SetUp() override { clipboard_.Copy({FakeClipboardAccess::Text(u"mine")}); }

    // The program's own content, in whose place the kept one comes back.
    void CopyOwn() {
        clipboard_.Copy({FakeClipboardAccess::Text(u"own")});
        snapshot_.NoteOwnContent();
    }
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
                     clipboard_.Named(u"A mark without data", "")});
    const std::vector<ClipboardBlock> content = clipboard_.Blocks;
    EXPECT_TRUE(snapshot_.Take());
    CopyOwn();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    const std::vector<ClipboardBlock> restored = clipboard_.Unmarked();
    ASSERT_EQ(restored.size(), content.size());
    for (std::size_t i = 0; i < content.size(); ++i) {
        EXPECT_EQ(restored[i].Format, content[i].Format);
        EXPECT_EQ(restored[i].Bytes, content[i].Bytes);
        EXPECT_EQ(restored[i].Object, content[i].Object);
    }
    // No history and no cloud gets it a second time.
    EXPECT_TRUE(clipboard_.IsMarked());
    EXPECT_THAT(log_.Lines, IsEmpty());
    CopyOwn();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"own"));
}

TEST_F(ClipboardSnapshotTest, WhatTheSystemMakesOrNobodyCanReadIsLeftToThem) {
    const std::uint32_t object = clipboard_.RegisterFormat(u"DataObject");
    const std::uint32_t ole = clipboard_.RegisterFormat(u"Ole Private Data");
    const std::uint32_t html = clipboard_.RegisterFormat(u"HTML Format");
    using Formats = std::vector<std::uint32_t>;
    // What is there, and what is kept.
    const std::pair<Formats, Formats> cases[] = {
        {{13, 16, 1, 7}, {13, 16}},
        {{1, 16, 7, 13}, {1, 16, 13}},              // Unicode may hold more than its neighbour
        {{13, 1, html, 16, 7}, {13, 1, html, 16}},  // before the last own one all are own
        {{html, 2, 8, 17}, {html, 2}},
        {{8, 2, 9, 17}, {8, 9, 17}},
        {{17, 8, 2}, {17}},
        {{14, 3}, {14}},
        {{object, 13, ole, 16, 1, 7}, {13, 16}},
    };
    for (const auto& [formats, kept] : cases) {
        std::vector<ClipboardBlock> blocks;
        for (const std::uint32_t format : formats) {
            blocks.push_back(FakeClipboardAccess::Memory(format, "x"));
        }
        clipboard_.Copy(blocks);
        EXPECT_TRUE(snapshot_.Take());
        CopyOwn();
        snapshot_.RestoreClipboardSnapshot();
        Formats restored;
        for (const ClipboardBlock& block : clipboard_.Unmarked()) {
            restored.push_back(block.Format);
        }
        EXPECT_EQ(restored, kept);
    }
}

TEST_F(ClipboardSnapshotTest, NothingNewerIsReplaced) {
    snapshot_.Take();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());  // nothing came by the program
    EXPECT_THAT(calls_, Not(Contains("empty")));
    snapshot_.Take();
    CopyOwn();
    clipboard_.Copy({FakeClipboardAccess::Text(u"newer")});
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"newer"));
    // It came while the clipboard was waited for.
    snapshot_.Take();
    CopyOwn();
    clipboard_.OnOpen = [this] { clipboard_.Copy({FakeClipboardAccess::Text(u"newest")}); };
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"newest"));
}

TEST_F(ClipboardSnapshotTest, WhatCannotBeHadWholeIsNotTaken) {
    clipboard_.Copy({FakeClipboardAccess::Memory(kClipText, "min"),
                     FakeClipboardAccess::Text(u"mine"), FakeClipboardAccess::Memory(300, "l"),
                     clipboard_.Named(u"x", "y")});
    clipboard_.ReadsUntilOwnerHangs = 2;
    calls_.clear();
    EXPECT_FALSE(snapshot_.Take());
    // It is asked for nothing more.
    EXPECT_EQ(std::ranges::count_if(calls_, [](auto& call) { return call.starts_with("read"); }),
              2);
    clipboard_.FailingOpens = 1;
    EXPECT_FALSE(snapshot_.Take());
    CopyOwn();
    snapshot_.RestoreClipboardSnapshot();
    EXPECT_TRUE(Holds(u"own"));
}

TEST_F(ClipboardSnapshotTest, AFormatThatFailsCostsOnlyItself) {
    const ClipboardBlock unread = clipboard_.Named(u"Unread", "1");
    const ClipboardBlock refused = clipboard_.Named(u"Refused", "2");
    clipboard_.Copy({unread, refused, FakeClipboardAccess::Text(u"mine")});
    clipboard_.Unreadable = {unread.Format};
    clipboard_.Refused = {refused.Format};
    snapshot_.Take();
    CopyOwn();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_TRUE(Holds(u"mine"));
    EXPECT_EQ(clipboard_.Unmarked().size(), 1U);
    EXPECT_THAT(log_.Lines, testing::SizeIs(2));
}

TEST_F(ClipboardSnapshotTest, WhatCouldNotBePutBackWaitsUntilTheEnd) {
    {
        CClipboardSnapshot snapshot(clipboard_, log_);
        snapshot.Take();
        clipboard_.Copy({FakeClipboardAccess::Text(u"own")});
        snapshot.NoteOwnContent();
        clipboard_.FailingOpens = 1;
        EXPECT_FALSE(snapshot.RestoreClipboardSnapshot());
        EXPECT_TRUE(Holds(u"own"));
    }
    EXPECT_TRUE(Holds(u"mine"));
}

}  // namespace
}  // namespace vbr

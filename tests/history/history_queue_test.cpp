// SPDX-License-Identifier: MIT
#include "history/history_queue.h"

#include <gtest/gtest.h>

#include "fakes/history_fixture.h"

namespace vbr {
namespace {

TEST(HistoryItem, SameMeansEqualContentInOneFormat) {
    const auto bytes = [](std::string_view text, ItemFormat format) {
        auto item = std::make_unique<CCHItem>(format, 0, TimeAt(0));
        const auto* data = reinterpret_cast<const std::byte*>(text.data());
        item->SetData({data, data + text.size()});
        return item;
    };
    using namespace std::string_view_literals;
    const std::tuple<const char*, std::unique_ptr<CCHItem>, std::unique_ptr<CCHItem>, bool>
        cases[] = {
            {"equal texts", TextItem(u"ab", 1), TextItem(u"ab", 2), true},
            {"other letters", TextItem(u"ab"), TextItem(u"aB"), false},
            {"one the start of the other", TextItem(u"ab"), TextItem(u"abc"), false},
            {"other formats", ByteItem(CHF_RTF, "{x}"), ByteItem(CHF_HTML, "{x}"), false},
            {"no terminator", bytes("abc"sv, CHF_RTF), bytes("abc\0"sv, CHF_RTF), true},
            {"bytes behind the zero", bytes("ab\0\0xy"sv, CHF_HTML), bytes("ab\0\0"sv, CHF_HTML),
             true},
            {"odd last byte", bytes("ab\0"sv, CHF_ANSI_TEXT), bytes("ab"sv, CHF_ANSI_TEXT), true},
            {"odd last letter", bytes("abc"sv, CHF_ANSI_TEXT), bytes("ab"sv, CHF_ANSI_TEXT), false},
            {"opaque data", ByteItem(CHF_KELPNOTES, "k"), ByteItem(CHF_KELPNOTES, "k"), false},
            {"equal pictures", PictureItem(4, 1), PictureItem(4, 1), true},
            {"other pixels", PictureItem(4, 1), PictureItem(4, 2), false},
            {"other widths", PictureItem(4, 1), PictureItem(5, 1), false},
            {"pictures of no size", PictureItem(0, 1), PictureItem(0, 1), false},
        };
    for (const auto& [what, a, b, same] : cases) {
        EXPECT_EQ(IsSame(*a, *b), same) << what;
        EXPECT_EQ(IsSame(*b, *a), same) << what;
    }
}

class HistoryQueue : public testing::Test, protected HistoryFixture {};

TEST_F(HistoryQueue, RepeatMovesToTheFrontAndKeepsIdAndProtection) {
    AddTexts(u"abc");
    ASSERT_TRUE(Queue.SetProtected(2, true));
    const std::uint32_t id = Queue.GetItem(2)->id;
    auto again = TextItem(u"a", 9);
    again->exeName = u"other.exe";
    Add(std::move(again), 1);
    EXPECT_EQ(Texts(), u"a! c b");
    EXPECT_EQ(Queue.GetItem(0)->id, id);
    EXPECT_EQ(Queue.GetItem(0)->exeName, u"other.exe");
    EXPECT_EQ(Queue.GetItem(0)->time.Second, 9);
}

TEST_F(HistoryQueue, EditedItemIsFoundByItsNewText) {
    AddTexts(u"ab");
    Queue.GetItem(1)->menuTip = u"old";
    EXPECT_TRUE(Queue.ChangeItem(1, [](CCHItem& item) {
        item.SetData(TextBytes(u"A"));
        return true;
    }));
    EXPECT_EQ(Queue.GetItem(1)->menuTip, u"");
    AddTexts(u"aA");
    EXPECT_EQ(Texts(), u"A a b");
}

TEST_F(HistoryQueue, LimitTakesTheOldestThatAreNotProtected) {
    const std::tuple<std::set<std::size_t>, std::uint32_t, std::u16string> cases[] = {
        {{}, 2, u"d c"},       {{3}, 2, u"d c a!"},     {{0}, 1, u"d!"},
        {{1, 2}, 0, u"c! b!"}, {{0, 3}, 2, u"d! c a!"}, {{}, 4, u"d c b a"},
    };
    for (const auto& [marked, max, left] : cases) {
        CCHQueue queue;
        for (const char16_t* text : {u"a", u"b", u"c", u"d"}) {
            queue.Add(TextItem(text), kNoItemLimit);
        }
        for (const std::size_t index : marked) {
            queue.SetProtected(index, true);
        }
        queue.Trim(max);
        EXPECT_EQ(HistoryFixture::TextsOf(queue), left);
    }
}

TEST_F(HistoryQueue, UndoBringsClearedAndDeletedItemsBack) {
    AddTexts(u"abcd");
    Queue.SetProtected(1, true);
    EXPECT_TRUE(Queue.Delete({0, 3}, true));
    EXPECT_EQ(Texts(), u"c! b");
    AddTexts(u"e");
    EXPECT_TRUE(Queue.Clear());
    EXPECT_EQ(Texts(), u"c!");
    AddTexts(u"f");
    EXPECT_EQ(Queue.GetUndoCount(), 2U);
    EXPECT_TRUE(Queue.Undo());
    EXPECT_EQ(Texts(), u"f e c! b");
    EXPECT_TRUE(Queue.Undo());
    EXPECT_EQ(Texts(), u"a d f e c! b");
    EXPECT_FALSE(Queue.Undo());
    EXPECT_EQ(Queue.GetItem(0)->storeState, StoreState::NotStored);
}

TEST_F(HistoryQueue, UndoMakesNoTwins) {
    AddTexts(u"ab");
    Queue.SetProtected(0, true);
    EXPECT_TRUE(Queue.Delete({0, 1}, true));
    AddTexts(u"a");
    EXPECT_TRUE(Queue.Undo());
    EXPECT_EQ(Texts(), u"a b!");
    EXPECT_TRUE(Queue.Clear());
    AddTexts(u"a");
    EXPECT_TRUE(Queue.Undo());
    EXPECT_EQ(Texts(), u"a b!");
}

TEST_F(HistoryQueue, AnIdFindsItsItemWhereverItMovedUntilItIsGone) {
    AddTexts(u"abc");
    const std::uint32_t id = Queue.GetItem(2)->id;
    EXPECT_EQ(Queue.IndexOfId(id), 2U);
    AddTexts(u"a");
    EXPECT_EQ(Queue.IndexOfId(id), 0U);
    EXPECT_EQ(Queue.FindById(id), Queue.GetItem(0));
    Queue.Delete({0}, true);
    EXPECT_FALSE(Queue.IndexOfId(id) || Queue.FindById(id));
    Queue.Undo();
    EXPECT_EQ(Queue.FindById(id), Queue.GetItem(0));
}

TEST_F(HistoryQueue, NothingToDeleteMakesNoUndo) {
    EXPECT_FALSE(Queue.Delete({0}, true));
    EXPECT_FALSE(Queue.Clear());
    AddTexts(u"a");
    EXPECT_FALSE(Queue.Delete({}, true));
    EXPECT_TRUE(Queue.Delete({7}, true));
    EXPECT_FALSE(Queue.HasUndo());
}

TEST_F(HistoryQueue, MergeSortsByTimeAndKeepsTheNewestAndTheProtected) {
    Add(TextItem(u"now", 5));
    CCHQueue loaded;
    loaded.Add(TextItem(u"first", 1), kNoItemLimit);
    loaded.Add(TextItem(u"second", 2), kNoItemLimit);
    loaded.Add(TextItem(u"older", 3), kNoItemLimit);
    loaded.Add(TextItem(u"now", 4), kNoItemLimit);
    loaded.SetProtected(0, true);
    loaded.SetProtected(3, true);
    Queue.Merge(loaded, 2);
    EXPECT_EQ(Texts(), u"now! older first!");
    EXPECT_EQ(loaded.GetCount(), 0U);
    Add(TextItem(u"older", 6), 3);
    EXPECT_EQ(Texts(), u"older now! first!");
}

TEST_F(HistoryQueue, WhatComesWhileItIsLockedGoesInWhenItOpens) {
    int arrivals = 0;
    Queue.OnArrived([&arrivals] { ++arrivals; });
    AddTexts(u"ab");
    Queue.SetLocked(true);
    AddTexts(u"ca");
    EXPECT_EQ(Texts(), u"b a");
    Queue.SetLocked(false);
    EXPECT_EQ(Texts(), u"a c b");
    Queue.SetLocked(true);
    Queue.SetLocked(false);
    EXPECT_EQ(arrivals, 1);
}

TEST_F(HistoryQueue, WhatWasClearedWhileItWasLoadedComesBackByUndoAlone) {
    CCHQueue loaded;
    for (const char16_t* text : {u"a", u"b", u"c"}) {
        loaded.Add(TextItem(text), kNoItemLimit);
    }
    loaded.SetProtected(1, true);
    Queue.MergeCleared(loaded);
    EXPECT_EQ(Texts(), u"b!");
    EXPECT_TRUE(Queue.Undo());
    EXPECT_EQ(Texts(), u"c a b!");
}

TEST_F(HistoryQueue, CopiesShareNothingThatChanges) {
    auto item = ByteItem(CHF_RTF, "{a}");
    item->alternatives.push_back(ByteItem(CHF_HTML, "<a>"));
    const auto copy = item->Copy();
    item->alternatives[0]->dataPath = "x";
    item->FreeData();
    EXPECT_EQ(copy->ByteText(), "{a}");
    EXPECT_EQ(copy->key, item->key);
    ASSERT_TRUE(copy->HasFormat(CHF_HTML));
    EXPECT_EQ(copy->FindFormat(CHF_HTML)->dataPath, "");
    EXPECT_FALSE(item->HasFormat(CHF_HTML));
}

}  // namespace
}  // namespace vbr

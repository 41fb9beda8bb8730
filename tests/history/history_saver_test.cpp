// SPDX-License-Identifier: MIT
#include "history/history_saver.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "fakes/held_event.h"
#include "fakes/history_fixture.h"

namespace vbr {
namespace {

// Saves stand still between Hold and Finish, so that things happen in the middle of one. The queue
// is the worker's while the test waits in Finish, as it is while a window answers.
class Saver : public testing::Test, protected HistoryFixture {
  protected:
    void Hold() { guard_.Reset(); }
    void Finish() {
        guard_.Set();
        worker_.Flush();
    }
    bool IsAllNoted() const { return Queue.CopyUnsaved().empty(); }

    bool hasWindow_ = true;  // that takes what was saved
    int asked_ = 0;
    std::atomic<int> told_ = 0;
    std::atomic<bool> wasUnguarded_ = false;
    bool isOn_ = true;
    std::function<void()> whileFirstIsTold_ = [] {};
    std::unique_ptr<HeldEvent> made_ = std::make_unique<HeldEvent>();
    HeldEvent& guard_ = *made_;  // as long as the worker
    HistorySaver saver_{{.Queue = Queue,
                         .Worker = worker_,
                         .IsOn = isOn_,
                         .TellSaved =
                             [this](const CCHItem& item) {
                                 ++told_;
                                 std::exchange(whileFirstIsTold_, [] {})();
                                 wasUnguarded_ = wasUnguarded_ || guard_.IsSet;
                                 if (hasWindow_) {
                                     Queue.NoteSaved(item);
                                 }
                                 return hasWindow_;
                             },
                         .AskForSave = [this] { ++asked_; }}};
    HistoryWorker worker_{Folder, std::move(made_)};
};

TEST_F(Saver, ASaveAskedForMeanwhileFollowsTheOneUnderWay) {
    Hold();
    AddTexts(u"a");
    saver_.Save();
    AddTexts(u"b");
    saver_.Save();
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"a");
    ASSERT_EQ(asked_, 1);
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"b a");
    EXPECT_EQ(asked_, 1);
}

TEST_F(Saver, OnlyWhatIsUnsavedBringsALastSave) {
    AddTexts(u"a");
    saver_.SaveRest();
    Finish();
    EXPECT_FALSE(IsAllNoted());
    saver_.NoteChange();
    saver_.SaveRest();
    Finish();
    EXPECT_TRUE(IsAllNoted());
    AddTexts(u"b");
    saver_.RequestSave(0);
    saver_.SaveRest();
    Finish();
    EXPECT_EQ(Reloaded(), u"b a");
}

TEST_F(Saver, WhatCouldNotBeWrittenIsWrittenByTheLastSave) {
    AddTexts(u"a");
    Files.Broken = SystemError{112, u"the disk is full"};
    saver_.Save();
    Finish();
    Files.Broken.reset();
    EXPECT_EQ(asked_, 0);  // or it would go round and round
    saver_.SaveRest();
    Finish();
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(Saver, TheEndOfTheKeepingInTheMiddleOfASaveWritesEachItemOnce) {
    Hold();
    AddTexts(u"ab");
    saver_.Save();
    AddTexts(u"c");
    saver_.NoteChange();
    Queue.ChangeItem(1, [](CCHItem& item) {
        item.SetData(TextBytes(u"B"));
        return true;
    });
    hasWindow_ = false;
    saver_.SaveRest();
    Finish();
    EXPECT_EQ(FileNames().size(), 8U);  // the old text too, until its result is noted
    hasWindow_ = true;
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"c B a");
    EXPECT_EQ(FileNames().size(), 6U);
}

TEST_F(Saver, HoweverSavesFallTogetherEachItemIsWrittenOnce) {
    hasWindow_ = false;
    for (int i = 0; i < 30; ++i) {
        Add(TextItem(Concat(u"text ", i)));
        saver_.NoteChange();
        saver_.SaveRest();
        while (told_ <= i) {
            std::this_thread::yield();
        }
        // Just now the worker is about to keep the result.
        saver_.NoteChange();
        saver_.SaveRest();
    }
    Finish();
    saver_.Save();
    EXPECT_TRUE(IsAllNoted());
    EXPECT_EQ(FileNames().size(), 60U);
}

TEST_F(Saver, ForAThreadThatHangsTheRestIsWrittenOnceThoughASaveHangsWithIt) {
    whileFirstIsTold_ = [this] {
        Add(TextItem(u"c"));
        saver_.SaveForHangingThread();
        EXPECT_EQ(FileNames().size(), 6U);
        EXPECT_EQ(Reloaded(), u"b a c");
    };
    AddTexts(u"ab");
    saver_.Save();
    Finish();
    EXPECT_EQ(told_, 2);
}

TEST_F(Saver, AnAskedSaveThatNobodyBeganIsMadeUpForByTheLastOne) {
    Hold();
    AddTexts(u"a");
    saver_.Save();
    AddTexts(u"b");
    saver_.Save();
    Finish();
    saver_.SaveRest();
    Finish();
    EXPECT_EQ(Reloaded(), u"b a");
}

TEST_F(Saver, AnotherHolderOfTheGuardDelaysASaveButNoLoad) {
    AddTexts(u"a");
    Hold();
    saver_.Save();
    while (!guard_.WasWaitedFor) {
        std::this_thread::yield();
    }
    EXPECT_EQ(told_, 0);
    Finish();
    EXPECT_EQ(told_, 1);
    EXPECT_FALSE(wasUnguarded_);
    EXPECT_TRUE(guard_.IsSet);
    Hold();
    std::u16string loaded;
    worker_.Load([&loaded](CCHQueue& queue) { loaded = TextsOf(queue); });
    worker_.Flush();
    EXPECT_EQ(loaded, u"a");
}

TEST_F(Saver, TheWorkersEndWaitsForNoHolderOfTheGuard) {
    AddTexts(u"a");
    auto guard = std::make_unique<HeldEvent>();
    guard->Reset();
    int incomplete = 0;
    {
        HistoryWorker worker(Folder, std::move(guard));
        for (int i = 0; i < 2; ++i) {
            worker.Save(Queue.CopyUnsaved(),
                        {.IsWritten = [](const CCHItem&) { return false; },
                         .OnSaved = [](const CCHItem&) {},
                         .OnEnd = [&](bool complete) { incomplete += complete ? 0 : 1; }});
        }
    }
    EXPECT_EQ(incomplete, 2);
    EXPECT_FALSE(std::filesystem::exists(Folder.Path()));
}

TEST_F(Saver, WhileSavingIsOffItemsStayUnsaved) {
    isOn_ = false;
    AddTexts(u"a");
    saver_.Save();
    Finish();
    EXPECT_FALSE(IsAllNoted());
    isOn_ = true;
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(Saver, ARequestIsDueASecondAfterTheLastOne) {
    saver_.RequestSave(0xFFFFFE00);
    saver_.RequestSave(0xFFFFFF00);
    EXPECT_FALSE(saver_.IsDue(0xFFFFFF00 + 1000));
    EXPECT_TRUE(saver_.IsDue(0xFFFFFF00 + 1001));
}

}  // namespace
}  // namespace vbr

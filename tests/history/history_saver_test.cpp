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

    // As the queue's thread does when it is told of an end.
    void AfterEnds(int count) {
        for (int i = 0; i < count; ++i) {
            saver_.Save();
            Finish();
        }
    }

    bool hasWindow_ = true;  // that takes what was loaded and saved
    std::atomic<int> ended_ = 0;
    std::atomic<int> told_ = 0;
    std::atomic<bool> wasUnguarded_ = false;
    bool isOn_ = true;
    std::uint32_t max_ = 30;
    std::function<void()> whileFirstIsTold_ = [] {};
    std::unique_ptr<HeldEvent> made_ = std::make_unique<HeldEvent>();
    HeldEvent& guard_ = *made_;  // as long as the worker
    HistorySaver saver_{{.Queue = Queue,
                         .Worker = worker_,
                         .IsOn = isOn_,
                         .MaxItems = max_,
                         .TellLoaded =
                             [this](CCHQueue& loaded) {
                                 std::exchange(whileFirstIsTold_, [] {})();
                                 if (hasWindow_) {
                                     saver_.Merge(loaded);
                                 }
                                 return hasWindow_;
                             },
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
                         .TellEnded = [this] { ++ended_; }}};
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
    EXPECT_EQ(ended_, 1);
    ASSERT_TRUE(saver_.State().IsWanted);
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"b a");
    EXPECT_FALSE(saver_.State().IsWanted);
}

TEST_F(Saver, OnlyWhatIsLeftBringsALastSave) {
    EXPECT_FALSE(saver_.SaveRest());
    AddTexts(u"a");
    EXPECT_TRUE(saver_.SaveRest());
    Finish();
    EXPECT_TRUE(IsAllNoted());
    EXPECT_FALSE(saver_.SaveRest());
    Queue.Delete({0}, false);
    EXPECT_TRUE(saver_.SaveRest());
    Finish();
    EXPECT_EQ(Reloaded(), u"");
    Add(PictureItem(1, 1));  // never stored
    EXPECT_FALSE(saver_.SaveRest());
}

TEST_F(Saver, WhatFailsIsTriedAgainWithGrowingPausesAndToldInTheEnd) {
    AddTexts(u"a");
    Files.Broken = SystemError{112, u"the disk is full"};
    const std::uint32_t pauses[] = {500, 1000, 2000, 4000, 8000};
    for (const std::uint32_t pause : pauses) {
        EXPECT_FALSE(saver_.State().IsFailing);
        AfterEnds(1);
        EXPECT_EQ(saver_.State().RetryAfter, pause);
    }
    EXPECT_TRUE(saver_.State().IsFailing);
    AfterEnds(40);
    EXPECT_EQ(saver_.State().RetryAfter, 300'000U);
    EXPECT_TRUE(saver_.SaveRest());
    Finish();
    Files.Broken.reset();
    AfterEnds(1);
    EXPECT_FALSE(saver_.State().RetryAfter);
    EXPECT_FALSE(saver_.State().IsFailing);
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(Saver, WhatIsStoredIsLoadedOnceAndAgainOnlyIfItFailed) {
    AddTexts(u"ab");
    Save();
    const auto others = [this] { return Queue.TakeFileChanges(); };
    Queue.Delete({0, 1}, false);
    others();  // of another program: the files stay
    Store.ListError = SystemError{5, u"denied"};
    HistoryFolder folder(Folder.Path(), Store, Files, Log);
    CCHQueue queue;
    HistoryWorker worker(folder, nullptr);
    HistorySaver saver({.Queue = queue,
                        .Worker = worker,
                        .IsOn = isOn_,
                        .MaxItems = max_,
                        .TellLoaded = [](CCHQueue&) { return false; },
                        .TellSaved = [](const CCHItem&) { return false; },
                        .TellEnded = [] {}});
    saver.Load();
    worker.Flush();
    EXPECT_TRUE(saver.State().RetryAfter);
    EXPECT_EQ(queue.GetCount(), 0U);
    Store.ListError.reset();
    saver.Save();  // loads too
    worker.Flush();
    saver.Save();  // nobody took the items: they are taken now
    worker.Flush();
    EXPECT_EQ(TextsOf(queue), u"b a");
    EXPECT_FALSE(saver.State().RetryAfter);
    saver.Load();
    worker.Flush();
    saver.Save();
    EXPECT_EQ(queue.GetCount(), 2U);
}

TEST_F(Saver, AClearDuringTheLoadStaysAClear) {
    AddTexts(u"ab");
    Queue.SetProtected(0, true);
    Save();
    Queue.SetProtected(0, false);
    Queue.Delete({0, 1}, false);
    Queue.TakeFileChanges();  // of another program: the files stay
    HistoryFolder folder(Folder.Path(), Store, Files, Log);
    HistoryWorker worker(folder, nullptr);
    CCHQueue queue;
    std::unique_ptr<HistorySaver> saver;
    saver = std::make_unique<HistorySaver>(
        HistorySaver::Collaborators{.Queue = queue,
                                    .Worker = worker,
                                    .IsOn = isOn_,
                                    .MaxItems = max_,
                                    .TellLoaded =
                                        [&](CCHQueue& loaded) {
                                            queue.Clear();
                                            saver->Merge(loaded);
                                            return true;
                                        },
                                    .TellSaved = [](const CCHItem&) { return true; },
                                    .TellEnded = [] {}});
    saver->Load();
    worker.Flush();
    saver->Save();
    worker.Flush();
    EXPECT_EQ(TextsOf(queue), u"b!");
    EXPECT_EQ(Reloaded(), u"b!");
}

TEST_F(Saver, TheEndOfTheKeepingInTheMiddleOfASaveWritesEachItemOnce) {
    Hold();
    AddTexts(u"ab");
    saver_.Save();
    AddTexts(u"c");
    Queue.ChangeItem(1, [](CCHItem& item) {
        item.SetData(TextBytes(u"B"));
        return true;
    });
    hasWindow_ = false;
    saver_.SaveRest();
    Finish();
    EXPECT_EQ(Reloaded(), u"c B a");
    EXPECT_EQ(FileNames().size(), 6U);
    hasWindow_ = true;
    saver_.Save();
    Finish();
    EXPECT_TRUE(IsAllNoted());
    EXPECT_EQ(FileNames().size(), 6U);
}

TEST_F(Saver, HoweverSavesFallTogetherEachItemIsWrittenOnce) {
    hasWindow_ = false;
    for (int i = 0; i < 30; ++i) {
        Add(TextItem(Concat(u"text ", i)));
        saver_.SaveRest();
        while (told_ <= i) {
            std::this_thread::yield();
        }
        // Just now the worker is about to keep the result.
        saver_.SaveRest();
    }
    Finish();
    EXPECT_EQ(FileNames().size(), 60U);
    saver_.Save();
    EXPECT_TRUE(IsAllNoted());
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
    HistoryFolder folder(Folder.Path(), Store, Files, Log);
    HistoryWorker(folder, nullptr)
        .Load({.OnLoaded = [&loaded](auto queue) { loaded = TextsOf(*queue); },
               .OnEnd = [](bool) {}});
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
            worker.Save({{}, Queue.CopyUnsaved()},
                        {.OnSaved = [](const CCHItem&) {},
                         .OnEnd = [&](bool complete) { incomplete += complete ? 0 : 1; }});
        }
    }
    EXPECT_EQ(incomplete, 2);
    EXPECT_FALSE(std::filesystem::exists(Folder.Path()));
}

TEST_F(Saver, AGuardThatIsHeldTooLongIsAnotherProgramsAndSavingGoesOn) {
    AddTexts(u"a");
    auto guard = std::make_unique<HeldEvent>();
    guard->Reset();
    int givenUp = 0;
    HistoryWorker worker(Folder, std::move(guard),
                         {.Time = std::chrono::milliseconds(0), .OnGivenUp = [&] { ++givenUp; }});
    for (int i = 0; i < 2; ++i) {
        worker.Save({{}, Queue.CopyUnsaved()},
                    {.OnSaved = [](const CCHItem&) {}, .OnEnd = [](bool) {}});
    }
    worker.Flush();
    EXPECT_EQ(givenUp, 1);
    EXPECT_EQ(Reloaded(), u"a");
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

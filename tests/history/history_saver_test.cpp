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
    bool isOn_ = true;
    std::unique_ptr<HeldEvent> made_ = std::make_unique<HeldEvent>();
    HeldEvent& guard_ = *made_;
    HistorySaver saver_{{.Queue = Queue,
                         .Worker = worker_,
                         .IsOn = isOn_,
                         .TellSaved =
                             [this](const CCHItem& item) {
                                 ++told_;
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

TEST_F(Saver, AResultThatNobodyTookIsNotedByTheNextSave) {
    AddTexts(u"a");
    hasWindow_ = false;
    saver_.Save();
    Finish();
    EXPECT_FALSE(IsAllNoted());
    hasWindow_ = true;
    saver_.Save();
    EXPECT_TRUE(IsAllNoted());
    EXPECT_EQ(FileNames().size(), 2U);
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

TEST_F(Saver, KeepingAgainInTheMiddleOfASaveWritesEachItemOnce) {
    Hold();
    AddTexts(u"a");
    saver_.Save();
    saver_.NoteChange();
    saver_.SaveRest();
    AddTexts(u"b");
    saver_.Save();
    Finish();  // a new window takes what the old one asked for
    EXPECT_EQ(FileNames().size(), 2U);
    ASSERT_EQ(asked_, 1);
    saver_.Save();
    Finish();
    EXPECT_EQ(Reloaded(), u"b a");
    EXPECT_EQ(FileNames().size(), 4U);
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

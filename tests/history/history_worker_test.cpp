// SPDX-License-Identifier: MIT
#include "history/history_worker.h"

#include <gtest/gtest.h>
#include <optional>

#include "fakes/held_event.h"
#include "fakes/history_fixture.h"

namespace vbr {
namespace {

class Worker : public testing::Test, protected HistoryFixture {
  protected:
    // Saves what is unsaved in the queue; `told_` gets each text that was written, and the end.
    void SaveAll() {
        worker_->Save(Queue.CopyUnsaved(),
                      {.IsWritten = [](const CCHItem& item) { return item.WideText() == u"old"; },
                       .OnSaved = [this](const CCHItem& item) { Tell(item.WideText()); },
                       .OnEnd = [this](bool complete) { Tell(complete ? u"all" : u"not all"); }});
    }
    void Tell(std::u16string_view what) {
        told_ += Concat(u" ", what, guard_.IsSet ? u" (guard is set)" : u"");
    }

    std::unique_ptr<HeldEvent> made_ = std::make_unique<HeldEvent>();
    HeldEvent& guard_ = *made_;  // as long as the worker
    std::u16string told_;
    std::optional<HistoryWorker> worker_{std::in_place, Folder, std::move(made_)};
};

TEST_F(Worker, JobsRunInOrderWhileTheGuardIsReset) {
    AddTexts(u"ab");
    Add(TextItem(u"old"));
    SaveAll();
    worker_->Load([this](CCHQueue& loaded) { Tell(Concat(u"loaded ", TextsOf(loaded))); });
    worker_->Flush();
    EXPECT_EQ(told_, u" a b all (guard is set) loaded b a");
    EXPECT_TRUE(guard_.IsSet);
}

TEST_F(Worker, AnEmptyFolderBringsNoQueue) {
    worker_->Load([this](CCHQueue&) { Tell(u"loaded"); });
    worker_->Flush();
    EXPECT_EQ(told_, u"");
}

TEST_F(Worker, AnotherHolderOfTheGuardDelaysASaveButNoLoad) {
    AddTexts(u"a");
    guard_.Reset();
    SaveAll();
    while (!guard_.WasWaitedFor) {
        std::this_thread::yield();
    }
    EXPECT_EQ(Reloaded(), u"");
    guard_.Set();
    worker_->Flush();
    EXPECT_EQ(Reloaded(), u"a");
    guard_.Reset();
    worker_->Load([this](CCHQueue&) { Tell(u"loaded"); });
    worker_->Flush();
    EXPECT_EQ(told_, u" a all (guard is set) loaded");
}

TEST_F(Worker, ItsEndWaitsForNoHolderOfTheGuard) {
    AddTexts(u"a");
    guard_.Reset();
    SaveAll();
    SaveAll();
    worker_.reset();
    EXPECT_EQ(told_, u" not all not all");
    EXPECT_FALSE(std::filesystem::exists(Folder.Path()));
}

TEST_F(Worker, TellsWhetherAllCouldBeWritten) {
    AddTexts(u"a");
    Files.Broken = SystemError{112, u"the disk is full"};
    SaveAll();
    worker_->Flush();
    EXPECT_EQ(told_, u" not all (guard is set)");
    std::filesystem::remove_all(Folder.Path());
    Temp.Write("ClipboardHistory", "a file in the folder's place");
    SaveAll();
    worker_->Flush();
    EXPECT_EQ(told_, u" not all (guard is set) not all (guard is set)");
}

}  // namespace
}  // namespace vbr

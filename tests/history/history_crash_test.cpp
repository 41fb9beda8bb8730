// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <set>

#include "fakes/history_fixture.h"
#include "fakes/memory_files.h"
#include "history/history_folder.h"

namespace vbr {
namespace {

using Texts = std::set<std::u16string>;

// A user who copies, repeats, edits, protects, deletes, clears and takes back, and a history that
// saves now and then, over a disk of which some calls fail.
class HistoryUser {
  public:
    HistoryUser(MemoryDisk& disk, const std::filesystem::path& path, Log& log)
        : folder_(path, disk.Store(), disk.Stamped(), log), disk_(disk) {}

    Texts Required;  // reported as saved, and not taken away since
    Texts Possible;  // not reported as gone

    void Act() {
        const auto chance = disk_.Chance();
        const std::size_t index = queue_.GetCount() == 0 ? 0 : disk_.Chance() % queue_.GetCount();
        switch (chance % 10) {
            case 0:
            case 1:
            case 2:
                queue_.Add(TextItem(NewText()), 8);
                break;
            case 3:
                if (const CCHItem* item = queue_.GetItem(index)) {
                    auto again = TextItem(item->WideText());
                    again->alternatives.push_back(ByteItem(CHF_HTML, "<b>"));
                    queue_.Add(std::move(again), 8);
                }
                break;
            case 4:
                queue_.ChangeItem(index, [this](CCHItem& item) {
                    item.SetData(TextBytes(NewText()));
                    return true;
                });
                break;
            case 5:
                queue_.SetProtected(index, chance % 3 == 0);
                break;
            case 6:
            case 7:
                queue_.Delete({index}, true);
                break;
            case 8:
                queue_.Undo();
                break;
            default:
                if (chance % 40 == 9) {
                    queue_.Clear();
                }
                break;
        }
        const Texts live = Live();
        std::erase_if(Required, [&live](const auto& text) { return !live.contains(text); });
    }

    bool Save() {
        Possible.merge(Live());
        const bool complete = folder_.Save(
            queue_.TakeFileChanges(), queue_.CopyUnsaved(), [this](const CCHItem& saved) {
                if (!disk_.IsStopped()) {
                    Required.insert(std::u16string(saved.WideText()));
                }
                queue_.NoteSaved(saved);
            });
        if (complete) {
            Possible = Live();
            EXPECT_EQ(Required, Possible);
        }
        return complete;
    }

    Texts Live() const {
        Texts texts;
        for (std::size_t i = 0; i < queue_.GetCount(); ++i) {
            texts.emplace(queue_.GetItem(i)->WideText());
        }
        return texts;
    }

  private:
    std::u16string NewText() { return Concat(u"text ", ++texts_); }

    HistoryFolder folder_;
    CCHQueue queue_;
    MemoryDisk& disk_;
    int texts_ = 0;
};

class HistoryCrash : public testing::Test {
  protected:
    Texts LoadedFrom(MemoryDisk& disk) {
        HistoryFolder folder(temp_.Path(), disk.Store(), disk.Stamped(), log_);
        CCHQueue queue;
        EXPECT_TRUE(folder.Load(queue));
        Texts texts;
        std::size_t files = 0;
        for (std::size_t i = 0; i < queue.GetCount(); ++i) {
            const CCHItem& item = *queue.GetItem(i);
            EXPECT_TRUE(texts.emplace(item.WideText()).second);
            files += 2 + item.alternatives.size();
        }
        // Nothing half done is left.
        EXPECT_EQ(disk.Files.size(), files);
        return texts;
    }

    TempFolder temp_;
    MemoryLog log_;
};

TEST_F(HistoryCrash, WhereverTheMachineStopsNothingSavedIsLostAndNothingDeletedReturns) {
    for (std::uint32_t seed = 0; seed < 1000; ++seed) {
        MemoryDisk disk;
        disk.Chance.seed(seed);
        HistoryUser user(disk, temp_.Path(), log_);
        disk.CallsUntilStop = 1 + static_cast<int>(disk.Chance() % 200);
        while (!disk.IsStopped()) {
            user.Act();
            if (disk.Chance() % 4 == 0) {
                disk.CallsUntilFailure = static_cast<int>(disk.Chance() % 10);
            }
            if (disk.Chance() % 2 == 0) {
                user.Save();
            }
        }
        disk.CallsUntilStop = disk.CallsUntilFailure = -1;
        const Texts loaded = LoadedFrom(disk);
        EXPECT_TRUE(std::ranges::includes(loaded, user.Required)) << seed;
        EXPECT_TRUE(std::ranges::includes(user.Possible, loaded)) << seed;
        ASSERT_FALSE(HasFailure()) << seed;
    }
}

TEST_F(HistoryCrash, WhicheverCallFailsTheNextSaveMakesUpForIt) {
    bool failed = true;
    for (int call = 0; failed; ++call) {
        MemoryDisk disk;
        HistoryUser user(disk, temp_.Path(), log_);
        disk.CallsUntilFailure = call;
        for (int i = 0; i < 40; ++i) {
            user.Act();
            if (i % 3 == 2) {
                user.Save();
            }
        }
        EXPECT_TRUE(user.Save() || user.Save()) << call;
        failed = disk.CallsUntilFailure < 0;
        EXPECT_EQ(LoadedFrom(disk), user.Live()) << call;
        // Loading can be done again, too.
        disk.CallsUntilFailure = call;
        {
            HistoryFolder folder(temp_.Path(), disk.Store(), disk.Stamped(), log_);
            CCHQueue queue;
            folder.Load(queue);
        }
        disk.CallsUntilFailure = -1;
        EXPECT_EQ(LoadedFrom(disk), user.Live()) << call;
        ASSERT_FALSE(HasFailure()) << call;
    }
}

}  // namespace
}  // namespace vbr

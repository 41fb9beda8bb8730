// SPDX-License-Identifier: MIT
#include "history/history_notices.h"

#include <gtest/gtest.h>

#include "fakes/memory_log.h"

namespace vbr {
namespace {

TEST(HistoryNotices, EachClipboardContentBringsOneReactionAndACaptureASound) {
    MemoryLog log;
    HistoryNotices notices(log);
    const auto parameter = [](HistoryChange change) { return static_cast<std::uint32_t>(change); };
    const struct {
        const char* What;
        std::uint32_t Code;
        HistoryChange Change;
        std::uint32_t Sequence;
        bool Refresh;
        bool PlaySound;
    } cases[] = {
        {"capture at the start", kNoticeHistoryChanged, HistoryChange::AtCreation, 5, true, false},
        {"the same content", kNoticeHistoryChanged, HistoryChange::Captured, 5, false, false},
        {"capture", kNoticeHistoryChanged, HistoryChange::Captured, 6, true, true},
        {"what was loaded", kNoticeHistoryLoaded, HistoryChange::Captured, 6, true, false},
        {"a command", kNoticeHistoryChanged, HistoryChange::ByCommand, 7, true, false},
        {"another's code", 1, HistoryChange::Captured, 8, false, false},
        {"capture after it", kNoticeHistoryChanged, HistoryChange::Captured, 8, true, true},
    };
    for (const auto& one : cases) {
        const HistoryReaction reaction =
            notices.OnNotice(one.Code, parameter(one.Change), one.Sequence, 3);
        EXPECT_EQ(reaction.Refresh, one.Refresh) << one.What;
        EXPECT_EQ(reaction.PlaySound, one.PlaySound) << one.What;
    }
    EXPECT_TRUE(log.Tells(u"Event OnClipboardHistoryChanged, Count=3"));
}

}  // namespace
}  // namespace vbr

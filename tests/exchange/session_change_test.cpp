// SPDX-License-Identifier: MIT
#include "exchange/session_change.h"

#include <gtest/gtest.h>

#include "fakes/journal.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

constexpr std::uint32_t kConsoleConnect = 1;
constexpr std::uint32_t kConsoleDisconnect = 2;
constexpr std::uint32_t kLogon = 5;
constexpr std::uint32_t kLogoff = 6;
constexpr std::uint32_t kLock = 7;
constexpr std::uint32_t kUnlock = 8;

class SessionWatchTest : public testing::Test {
  protected:
    // What a change made the tray window do.
    Journal Change(std::uint32_t reason) {
        calls_.clear();
        watch_.OnWmWTSSessionChange(reason, 1);
        return calls_;
    }
    bool Turn(const char* call, bool on) {
        calls_.push_back(call);
        running_ = on;
        return true;
    }

    bool running_ = true;
    Journal calls_;
    MemoryLog log_;
    SessionWatch watch_{{.IsSpyRunning = [this] { return running_; },
                         .StartSpy = [this] { return Turn("start", true); },
                         .StopSpy = [this] { return Turn("stop", false); },
                         .OnSpyChanged = [this] { calls_.push_back("icon"); },
                         .Announce =
                             [this](std::uint32_t reason) {
                                 calls_.push_back("announce " + std::to_string(reason));
                             }},
                        log_};
};

TEST_F(SessionWatchTest, LeavingStopsTheHistoryAndComingBackStartsIt) {
    for (const auto& [away, back] : {std::pair(kConsoleDisconnect, kConsoleConnect),
                                     std::pair(kLogoff, kLogon), std::pair(kLock, kUnlock)}) {
        EXPECT_EQ(Change(away), (Journal{"stop", "icon", "announce " + std::to_string(away)}));
        EXPECT_EQ(Change(back), (Journal{"start", "icon", "announce " + std::to_string(back)}));
    }
}

TEST_F(SessionWatchTest, AHistoryThatTheUserTurnedOffStaysOff) {
    running_ = false;
    EXPECT_EQ(Change(kLock), Journal{"announce 7"});
    EXPECT_EQ(Change(kUnlock), Journal{"announce 8"});
}

TEST_F(SessionWatchTest, WhatTheUserTurnedOffAfterHisReturnStaysOff) {
    EXPECT_EQ(Change(kLogon), Journal{"announce 5"});
    Change(kLogoff);
    EXPECT_EQ(Change(kLock), Journal{"announce 7"});
    EXPECT_EQ(Change(9), Journal{"announce 9"});  // of no direction
    EXPECT_EQ(Change(kLogon), (Journal{"start", "icon", "announce 5"}));
    running_ = false;
    Change(kLock);
    EXPECT_EQ(Change(kUnlock), Journal{"announce 8"});
}

}  // namespace
}  // namespace vbr

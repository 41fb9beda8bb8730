// SPDX-License-Identifier: MIT
#include "exchange/session_change.h"

#include <gtest/gtest.h>

#include "exchange/session_notices.h"
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

struct FakeSpy {
    bool Running = true;
    Journal Calls;

    bool Turn(const char* call, bool on) {
        Calls.push_back(call);
        Running = on;
        return true;
    }
};

class SessionWatchTest : public testing::Test {
  protected:
    // What a change made the tray window do.
    Journal Change(std::uint32_t reason) {
        spy_.Calls.clear();
        watch_.OnWmWTSSessionChange(reason, 1);
        return spy_.Calls;
    }

    FakeSpy spy_;
    MemoryLog log_;
    SessionWatch watch_{{.IsSpyRunning = [this] { return spy_.Running; },
                         .StartSpy = [this] { return spy_.Turn("start", true); },
                         .StopSpy = [this] { return spy_.Turn("stop", false); },
                         .OnSpyChanged = [this] { spy_.Calls.push_back("icon"); },
                         .Announce =
                             [this](std::uint32_t reason) {
                                 spy_.Calls.push_back("announce " + std::to_string(reason));
                             }},
                        log_};
};

TEST_F(SessionWatchTest, LeavingStopsTheHistoryAndComingBackStartsIt) {
    const struct {
        std::uint32_t Away, Back;
    } kCases[] = {{kConsoleDisconnect, kConsoleConnect}, {kLogoff, kLogon}, {kLock, kUnlock}};
    for (const auto& [away, back] : kCases) {
        EXPECT_EQ(Change(away), (Journal{"stop", "icon", "announce " + std::to_string(away)}));
        EXPECT_FALSE(spy_.Running);
        EXPECT_EQ(Change(back), (Journal{"start", "icon", "announce " + std::to_string(back)}));
        EXPECT_TRUE(spy_.Running);
    }
}

TEST_F(SessionWatchTest, AHistoryThatTheUserTurnedOffStaysOff) {
    spy_.Running = false;
    EXPECT_EQ(Change(kLock), Journal{"announce 7"});
    EXPECT_EQ(Change(kUnlock), Journal{"announce 8"});
}

TEST_F(SessionWatchTest, ChangesWithoutADirectionAreOnlyAnnounced) {
    Change(kLock);
    for (const std::uint32_t remoteOrUnknown : {3U, 4U, 9U, 10U, 0U}) {
        EXPECT_EQ(Change(remoteOrUnknown), Journal{"announce " + std::to_string(remoteOrUnknown)});
    }
}

TEST_F(SessionWatchTest, OnceStoppedBySessionEachReturnStartsTheHistory) {
    EXPECT_EQ(Change(kLogon), Journal{"announce 5"});
    Change(kLogoff);
    Change(kLogon);
    EXPECT_EQ(Change(kLogon), (Journal{"start", "icon", "announce 5"}));
}

class FakeNotices : public SessionNotices {
  public:
    WindowHandle Registered = 0;

    bool Register(WindowHandle window, bool thisSessionOnly) override {
        Registered = thisSessionOnly ? window : 0;
        return Registered != 0;
    }
    bool Unregister(WindowHandle, bool forget) override {
        Registered = forget ? 0 : Registered;
        return true;
    }
    bool IsRegistered(WindowHandle window) const override { return Registered == window; }
};

TEST(SessionNotices, AreOfThisSessionAndEndForTheirWindowAlone) {
    FakeNotices notices;
    MemoryLog log;
    BeginSessionNotices(notices, 66, log);
    EXPECT_EQ(notices.Registered, 66U);
    EndSessionNotices(notices, 67, log);
    EXPECT_EQ(notices.Registered, 66U);
    EndSessionNotices(notices, 66, log);
    EXPECT_EQ(notices.Registered, 0U);
}

}  // namespace
}  // namespace vbr

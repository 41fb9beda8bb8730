// SPDX-License-Identifier: MIT
#include "exchange/session_change.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/session_notices.h"
#include "fakes/journal.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::uint32_t kConsoleConnect = 1;
constexpr std::uint32_t kConsoleDisconnect = 2;
constexpr std::uint32_t kRemoteConnect = 3;
constexpr std::uint32_t kRemoteDisconnect = 4;
constexpr std::uint32_t kLogon = 5;
constexpr std::uint32_t kLogoff = 6;
constexpr std::uint32_t kLock = 7;
constexpr std::uint32_t kUnlock = 8;
constexpr std::uint32_t kRemoteControl = 9;

class FakeSpy : public SessionActions {
  public:
    bool Running = true;
    bool Obeys = true;
    Journal Calls;

    bool IsSpyRunning() const override { return Running; }
    bool StartSpy() override { return Turn("start", true); }
    bool StopSpy() override { return Turn("stop", false); }
    void UpdateIcon() override { Calls.push_back("icon"); }
    void AnnounceSessionEvent(std::uint32_t reason) override {
        Calls.push_back("announce " + std::to_string(reason));
    }

  private:
    bool Turn(const char* call, bool on) {
        Calls.push_back(call);
        Running = Obeys ? on : Running;
        return Obeys;
    }
};

class SessionWatchTest : public testing::Test {
  protected:
    // What a change made the tray window do.
    Journal Change(std::uint32_t reason) {
        spy_.Calls.clear();
        log_.Lines.clear();
        watch_.OnWmWTSSessionChange(reason, 1);
        return spy_.Calls;
    }

    FakeSpy spy_;
    MemoryLog log_;
    SessionWatch watch_{spy_, log_};
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
    for (const std::uint32_t reason :
         {kRemoteConnect, kRemoteDisconnect, kRemoteControl, 10U, 0U}) {
        EXPECT_EQ(Change(reason), Journal{"announce " + std::to_string(reason)});
        EXPECT_EQ(log_.Lines.size(), 2U);
    }
}

TEST_F(SessionWatchTest, OnceStoppedBySessionEachReturnStartsTheHistory) {
    EXPECT_EQ(Change(kLogon), Journal{"announce 5"});
    Change(kLogoff);
    Change(kLogon);
    EXPECT_EQ(Change(kLogon), (Journal{"start", "icon", "announce 5"}));
}

TEST_F(SessionWatchTest, TheLogTellsReasonDirectionAndResultUnderASection) {
    spy_.Obeys = false;
    watch_.OnWmWTSSessionChange(kLock, 4);
    watch_.OnWmWTSSessionChange(kUnlock, 4);
    watch_.OnWmWTSSessionChange(77, 4);
    EXPECT_THAT(log_.Lines,
                ElementsAre(u"OnWmWTSSessionChange reason=WTS_SESSION_LOCK sessionId=4",
                            u"OnWmWTSSessionChange WTS_reason=-1",
                            u"OnWmWTSSessionChange: Clipboard Spy is uninstalled=0",
                            u"OnWmWTSSessionChange reason=WTS_SESSION_UNLOCK sessionId=4",
                            u"OnWmWTSSessionChange WTS_reason=1",
                            u"OnWmWTSSessionChange: Clipboard Spy is installed=0",
                            u"OnWmWTSSessionChange reason=Оппа-ньки! Что за нафиг "
                            u"WTSSessionChangeReason_2_Str: wReason=77 sessionId=4",
                            u"OnWmWTSSessionChange WTS_reason=0"));
    EXPECT_THAT(log_.Sections, Each(u"CVBRTrayWnd::OnWmWTSSessionChange"));
    log_.Write(u"after");
    EXPECT_EQ(log_.Sections.back(), u"");
}

class FakeNotices : public SessionNotices {
  public:
    bool Obeys = true;
    WindowHandle Registered = 0;

    bool Register(WindowHandle window, bool thisSessionOnly) override {
        Registered = Obeys && thisSessionOnly ? window : 0;
        return Registered != 0;
    }
    bool Unregister(WindowHandle, bool forget) override {
        Registered = Obeys && forget ? 0 : Registered;
        return Obeys;
    }
    bool IsRegistered(WindowHandle window) const override { return Registered == window; }
};

TEST(SessionNotices, TheLogTellsWhetherTheyBeganAndEnded) {
    FakeNotices notices;
    MemoryLog log;
    for (const bool obeys : {true, false}) {
        notices.Obeys = true;
        BeginSessionNotices(notices, 66, log);
        notices.Obeys = obeys;
        EndSessionNotices(notices, 66, log);
        EXPECT_EQ(notices.Registered, obeys ? 0U : 66U);
    }
    BeginSessionNotices(notices, 66, log);
    EndSessionNotices(notices, 66, log);
    EXPECT_THAT(
        log.Lines,
        ElementsAre(u"WTS_Notify successfully installed", u"WTS_Notify successfully uninstalled",
                    u"WTS_Notify successfully installed", u"ERROR: WTS_Notify cannot uninstall",
                    u"ERROR: WTS_Notify NOT installed",
                    u"ERROR: WTS_Notify HWND for uninstalling not found"));
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "history/clipboard_spy.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "fakes/journal.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

constexpr WindowHandle kSelf = 5;

class FakeSpyDesktop : public SpyDesktop {
  public:
    Journal Calls;
    bool HasListener = true;
    bool HasChain = true;
    WindowHandle First = 0;
    std::uint32_t Sequence = 1;
    std::function<void(WindowHandle)> OnSent = [](WindowHandle) {};
    bool InUse = false;

    bool AddListener() override { return Note("listen", HasListener); }
    void RemoveListener() override { Note("unlisten"); }
    WindowHandle Viewer() const override { return First; }
    std::optional<WindowHandle> SetViewer() override {
        Note("view");
        return HasChain ? std::optional(First) : std::nullopt;
    }
    void LeaveChain(WindowHandle next) override { Note("leave " + std::to_string(next)); }
    void SendChainChange(WindowHandle to, WindowHandle removed, WindowHandle next) override {
        Note("chain " + std::to_string(to) + " " + std::to_string(removed) + " " +
             std::to_string(next));
        OnSent(to);
    }
    void SendDraw(WindowHandle to) override {
        Note("draw " + std::to_string(to));
        OnSent(to);
    }
    void StartCheckTimer() override { Note("timer"); }
    void StopCheckTimer() override { Note("no timer"); }
    void PostChange(WindowHandle owner) override { Note("change " + std::to_string(owner)); }
    void PostStateChange() override { Note("state"); }
    std::uint32_t SequenceNumber() const override { return Sequence; }
    bool IsClipboardInUse() const override { return InUse; }
    WindowHandle ClipboardOwner() const override { return 7; }
    WindowHandle ForegroundWindow() const override { return 8; }

  private:
    bool Note(std::string call, bool result = true) {
        Calls.push_back(std::move(call));
        return result;
    }
};

class Spy : public testing::Test, private ClipboardObserver {
  protected:
    Spy() { spy_.AddObserver(*this, 3); }

    // What the desktop was asked for since the last call.
    Journal Calls() { return std::exchange(desktop_.Calls, {}); }
    void InstallAsViewerBefore(WindowHandle next) {
        desktop_.First = next;
        ASSERT_TRUE(spy_.InstallMethod(kSelf, false));
        Calls();
    }

    FakeSpyDesktop desktop_;
    MemoryLog log_;
    HWNDClipboardSpy spy_{desktop_, log_};
    Journal told_;

  private:
    void OnClipboardChanged(WindowHandle& owner, std::uint32_t value) override {
        told_.push_back("change " + std::to_string(owner) + " " + std::to_string(value));
    }
    void _OnClipboardSpyStateChanged(std::uint32_t) override { told_.push_back("state"); }
};

TEST_F(Spy, PrefersTheListenerAndFallsBackToTheChain) {
    EXPECT_TRUE(spy_.InstallMethod(kSelf, true));
    EXPECT_EQ(Calls(), (Journal{"listen", "timer"}));
    spy_.UninstallMethod();
    EXPECT_EQ(Calls(), (Journal{"unlisten", "no timer"}));
    desktop_.HasListener = false;
    desktop_.First = 9;
    EXPECT_TRUE(spy_.InstallMethod(kSelf, true));
    EXPECT_EQ(Calls(), (Journal{"listen", "view", "chain 9 0 5", "timer"}));
    EXPECT_EQ(spy_.Method(), SpyMethod::CSMO_SETCLIPBOARDVIEWER);
    spy_.UninstallMethod();
    EXPECT_EQ(Calls(), (Journal{"leave 9", "no timer"}));
    desktop_.HasChain = false;
    EXPECT_FALSE(spy_.InstallMethod(kSelf, true));
    EXPECT_FALSE(spy_.IsInstalled());
}

TEST_F(Spy, ViewerReportsForwardsAndFollowsTheChain) {
    InstallAsViewerBefore(9);
    spy_.OnDrawClipboard();
    EXPECT_EQ(Calls(), (Journal{"change 7", "draw 9"}));
    spy_.OnChangeChain(4, 6);
    EXPECT_EQ(Calls(), (Journal{"chain 9 4 6"}));
    spy_.OnChangeChain(9, 6);
    spy_.OnDrawClipboard();
    EXPECT_EQ(Calls(), (Journal{"change 7", "draw 6"}));
    spy_.OnChangeChain(6, kSelf);
    spy_.OnDrawClipboard();
    EXPECT_EQ(Calls(), (Journal{"change 7"}));
}

TEST_F(Spy, ChainThatLeadsBackIsNoCircle) {
    InstallAsViewerBefore(9);
    desktop_.OnSent = [this](WindowHandle) {
        spy_.OnDrawClipboard();
        spy_.OnChangeChain(1, 2);
    };
    spy_.OnDrawClipboard();
    spy_.OnChangeChain(4, 6);
    EXPECT_EQ(Calls(), (Journal{"change 7", "draw 9", "chain 9 4 6"}));
}

TEST_F(Spy, ChangeThatWentByUnnoticedBringsANewSubscription) {
    ASSERT_TRUE(spy_.InstallMethod(kSelf, true));
    Calls();
    spy_.OnTimer();
    EXPECT_EQ(Calls(), Journal{});
    ++desktop_.Sequence;
    spy_.OnNotice(true, 7);
    spy_.OnTimer();
    EXPECT_EQ(Calls(), Journal{});
    ++desktop_.Sequence;
    desktop_.InUse = true;
    spy_.OnTimer();
    EXPECT_EQ(Calls(), Journal{});
    desktop_.InUse = false;
    spy_.OnTimer();
    EXPECT_EQ(Calls(), (Journal{"unlisten", "no timer", "listen", "timer", "change 7"}));
    EXPECT_EQ(told_, (Journal{"change 7 3"}));
}

TEST_F(Spy, LostSubscriptionIsToldOnce) {
    InstallAsViewerBefore(0);
    desktop_.HasChain = false;
    ++desktop_.Sequence;
    spy_.OnTimer();
    EXPECT_EQ(Calls(), (Journal{"leave 0", "no timer", "view", "state"}));
    spy_.OnNotice(false, 0);
    EXPECT_EQ(told_, (Journal{"state"}));
}

TEST_F(Spy, ChangeWithoutAnOwnerCountsForTheWindowInFront) {
    spy_.OnNotice(true, 0);
    EXPECT_EQ(told_, (Journal{"change 8 3"}));
}

TEST(SpySetting, NamesAMethodOrNone) {
    EXPECT_EQ(SpyMethodOfSetting(-1, true), SpyMethod::CSMO_ADDCLIPBOARDLISTENER);
    EXPECT_EQ(SpyMethodOfSetting(-1, false), SpyMethod::CSMO_SETCLIPBOARDVIEWER);
    EXPECT_EQ(SpyMethodOfSetting(1, false), SpyMethod::CSMO_ADDCLIPBOARDLISTENER);
    EXPECT_FALSE(SpyMethodOfSetting(2, true));
    EXPECT_FALSE(SpyMethodOfSetting(-2, true));
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "exchange/input_desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/journal.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

using testing::ElementsAre;

struct DesktopFacts {
    std::uintptr_t Handle = 0;  // 0 can't be opened
    DesktopName Name;
};

// Notes in the journal when it is closed.
class FakeDesktop : public Desktop {
  public:
    FakeDesktop(const DesktopFacts& facts, Journal& closed) : facts_(facts), closed_(closed) {}
    ~FakeDesktop() override { closed_.push_back(Utf16ToUtf8(facts_.Name.Text)); }

    std::uintptr_t Handle() const override { return facts_.Handle; }
    DesktopName Name() const override { return facts_.Name; }

  private:
    DesktopFacts facts_;
    Journal& closed_;
};

class FakeDesktops : public Desktops {
  public:
    DesktopFacts OfThread{1, {true, u"Default"}};
    DesktopFacts Input{2, {true, u"Default"}};
    Journal Closed;

    std::unique_ptr<Desktop> OpenOfThread() override { return Open(OfThread); }
    std::unique_ptr<Desktop> OpenInput() override { return Open(Input); }

  private:
    std::unique_ptr<Desktop> Open(const DesktopFacts& facts) {
        return facts.Handle ? std::make_unique<FakeDesktop>(facts, Closed) : nullptr;
    }
};

class InputDesktop : public testing::Test {
  protected:
    FakeDesktops desktops_;
    MemoryLog log_;
};

TEST_F(InputDesktop, DifferentHandlesAreOneDesktopWhenTheNamesAreTheSameButForCase) {
    desktops_.Input.Name.Text = u"default";
    EXPECT_TRUE(IsInputDesktopActive(desktops_, log_));
    EXPECT_THAT(log_.Lines, ElementsAre(u"hDesk1=[Default,1] hDesk2=[default,1]",
                                        u"Current Desktop is active"));
}

TEST_F(InputDesktop, AHotkeyFromAnotherDesktopIsSkipped) {
    desktops_.Input.Name.Text = u"Winlogon";
    EXPECT_FALSE(MayServeHotkey(desktops_, log_));
    EXPECT_THAT(log_.Lines, ElementsAre(u"hDesk1=[Default,1] hDesk2=[Winlogon,1]",
                                        u"Current Desktop is IS NOT active",
                                        u"SKIP HOTKEY. Input desktop is INACTIVE"));
    EXPECT_EQ(desktops_.Closed, (Journal{"Winlogon", "Default"}));
}

TEST_F(InputDesktop, OneHandleNeedsNoNames) {
    desktops_.OfThread = desktops_.Input = {7, {}};
    EXPECT_TRUE(MayServeHotkey(desktops_, log_));
    EXPECT_THAT(log_.Lines, ElementsAre(u"Current Desktop is active", u"Input desktop is active"));
}

TEST_F(InputDesktop, ANameThatCannotBeReadIsNoSameName) {
    desktops_.OfThread.Name = {false, u"", 16, {5, u"Denied."}};
    desktops_.Input.Name = {false, u"", 18, {6, u"Bad handle."}};
    EXPECT_FALSE(IsInputDesktopActive(desktops_, log_));
    EXPECT_THAT(log_.Lines,
                ElementsAre(u"b1=0, szName1=, dwLenNeed=16, LastError= 5, Denied.",
                            u"b1=0, szName2=, dwLenNeed=18, LastError= 6, Bad handle.",
                            u"hDesk1=[,0] hDesk2=[,0]", u"Current Desktop is IS NOT active"));
}

TEST_F(InputDesktop, ADesktopThatCannotBeOpenedIsNotActive) {
    desktops_.Input.Handle = 0;
    EXPECT_FALSE(IsInputDesktopActive(desktops_, log_));
    EXPECT_EQ(desktops_.Closed, Journal{"Default"});
    desktops_.OfThread.Handle = 0;
    EXPECT_FALSE(IsInputDesktopActive(desktops_, log_));
    EXPECT_THAT(log_.Lines, ElementsAre(u"Input Desktop is NULL", u"Current Desktop is NULL"));
}

}  // namespace
}  // namespace vbr

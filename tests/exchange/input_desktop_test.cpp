// SPDX-License-Identifier: MIT
#include "exchange/input_desktop.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/journal.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

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

const DesktopFacts kDefault = {1, {true, u"Default"}};

TEST(InputDesktop, IsActiveWhenItIsTheThreadsDesktopByHandleOrByName) {
    const DesktopName unreadable = {false, u"", 16, {5, u"Denied."}};
    const struct {
        DesktopFacts OfThread;
        DesktopFacts Input;
        bool Active;
    } cases[] = {
        {kDefault, {2, {true, u"default"}}, true},  // in any case
        {kDefault, {2, {true, u"Winlogon"}}, false},
        {{7, {}}, {7, {}}, true},  // one handle needs no names
        {{1, unreadable}, {2, unreadable}, false},
        {kDefault, {}, false},  // it can't be opened
        {{}, kDefault, false},
    };
    for (const auto& c : cases) {
        FakeDesktops desktops;
        desktops.OfThread = c.OfThread;
        desktops.Input = c.Input;
        MemoryLog log;
        EXPECT_EQ(IsInputDesktopActive(desktops, log), c.Active) << Utf16ToUtf8(log.Lines.back());
        EXPECT_EQ(MayServeHotkey(desktops, log), c.Active);
    }
}

TEST(InputDesktop, IsClosedAfterTheQuestionEvenWhenTheOtherCannotBeOpened) {
    FakeDesktops desktops;
    MemoryLog log;
    IsInputDesktopActive(desktops, log);
    EXPECT_EQ(desktops.Closed.size(), 2U);
    desktops.Input.Handle = 0;
    IsInputDesktopActive(desktops, log);
    EXPECT_EQ(desktops.Closed.size(), 3U);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "exchange/input_desktop.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/fake_desktops.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

const DesktopFacts kDefault = {1, {true, u"Default"}};

TEST(InputDesktop, IsActiveWhenItIsTheThreadsDesktopByHandleOrByName) {
    const DesktopName unreadable = {false, u"", 16, {5, u"Denied."}};
    const std::tuple<DesktopFacts, DesktopFacts, bool> cases[] = {
        {kDefault, {2, {true, u"default"}}, true},  // in any case
        {kDefault, {2, {true, u"Winlogon"}}, false},
        {{7, {}}, {7, {}}, true},  // one handle needs no names
        {{1, unreadable}, {2, unreadable}, false},
        {kDefault, {}, false},  // it can't be opened
        {{}, kDefault, false},
    };
    for (const auto& [ofThread, input, active] : cases) {
        FakeDesktops desktops;
        desktops.OfThread = ofThread;
        desktops.Input = input;
        MemoryLog log;
        EXPECT_EQ(MayServeHotkey(desktops, log), active) << Utf16ToUtf8(log.Lines.back());
        EXPECT_EQ(desktops.Open, 0);
    }
}

}  // namespace
}  // namespace vbr

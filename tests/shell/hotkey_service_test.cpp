// SPDX-License-Identifier: MIT
#include "shell/hotkey_service.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/shell_fixture.h"
#include "platform/object_names.h"
#include "shell/double_press.h"

namespace vbr {
namespace {

const std::string kCloseArea = "close " + Utf16ToUtf8(kAreaInterchange);

class HotkeyServiceStart : public testing::Test, protected ShellFixture {
  protected:
    HotkeyServiceStart() {
        Hotkey.Stop();
        Calls.clear();
    }
    // The calls of a start that must fail and leave nothing behind.
    Journal FailedStart(bool libraryExists = true) {
        Calls.clear();
        Messages.clear();
        errorText_ = Hotkey.Install({.TargetsAnswer = true}, libraryExists).value_or(u"none");
        EXPECT_FALSE(Hotkey.IsInstalled());
        EXPECT_TRUE(Objects.Owned.empty());
        EXPECT_EQ(std::ranges::count(Calls, kCloseArea), Memory.Fails ? 0 : 1);
        return Calls;
    }

    std::u16string errorText_;
};

TEST_F(HotkeyServiceStart, StopLeavesNothingBehindAndTheLibraryGoesBeforeWhatItUses) {
    EXPECT_EQ(Hotkey.Install({}, true), std::nullopt);
    EXPECT_TRUE(Objects.Exists(kEventDataNeeded) && Objects.Exists(kEventDataCompleted));
    EXPECT_EQ(Memory.Blocks[std::u16string(kAreaSettings)], SharedSettingsText(13, 3, false, u""));
    Calls.clear();
    Hotkey.Stop();
    EXPECT_EQ(Calls.front(), "uninstall");
    EXPECT_EQ(Calls.back(), kCloseArea);
    EXPECT_EQ(std::ranges::count(Calls, "unregister"), 1);
    EXPECT_TRUE(Objects.Owned.empty());
    EXPECT_TRUE(Messages.empty());
}

TEST_F(HotkeyServiceStart, WithoutAllSharedObjectsNoKeyIsRegistered) {
    for (const std::u16string_view refused : {kEventDataNeeded, kEventDataCompleted}) {
        Objects.Refused = {refused};
        EXPECT_EQ(FailedStart().size(), 2U);
        EXPECT_EQ(errorText_, u"ERROR: Cannot create wait objects");
        EXPECT_EQ(Messages, MessageList{errorText_});
    }
    Objects.Refused.clear();
    Memory.Fails = true;
    EXPECT_EQ(FailedStart(), Journal());
    // Where no target answers it is told, and all else works.
    EXPECT_EQ(Hotkey.Install({}, true), std::nullopt);
    EXPECT_TRUE(Hotkey.IsInstalled());
    EXPECT_TRUE(Macros.Log.Tells(Concat(u"Another program holds the name ", kAreaInterchange)));
    Hotkey.Stop();
}

TEST_F(HotkeyServiceStart, AKeyThatIsTakenClosesTheSharedObjects) {
    Hotkeys.Error = SystemError{1409, u"taken"};
    EXPECT_EQ(FailedStart().back(), kCloseArea);
    EXPECT_EQ(errorText_, Concat(u"\n\n", Messages.at(0), u"\n", Messages.at(1)));
}

TEST_F(HotkeyServiceStart, ALibraryThatFailsGivesKeyAndObjectsBack) {
    Library.InstallResult = false;
    Library.ErrorCode = 3;
    EXPECT_EQ(std::ranges::count(FailedStart(), "unregister"), 1);
    EXPECT_EQ(errorText_,
              u"ERROR: Cannot kernel DLL install\nDLL path: L:\\lib.dll\n\n"
              u"Cant install hook\nError code: 3");
    EXPECT_EQ(Messages, MessageList{errorText_});
    Library.Loads = false;
    FailedStart(false);
    EXPECT_NE(errorText_.find(u"\nDLL not found: L:\\lib.dll\n"), errorText_.npos);
}

TEST_F(HotkeyServiceStart, WithoutTheWaitForQueriesAllIsUndone) {
    Waiter.Starts = false;
    EXPECT_EQ(FailedStart().back(), kCloseArea);
    EXPECT_EQ(errorText_, u"ERROR: Cannot start wait thread for query");
}

TEST_F(HotkeyServiceStart, AWaitThatFailedBeginsAnewWhileTheServiceIsOn) {
    Hotkey.RestartWait();
    EXPECT_EQ(Calls, Journal());
    Hotkey.Install({}, true);
    Hotkey.RestartWait();
    EXPECT_EQ(std::ranges::count(Calls, "wait"), 2);
}

TEST_F(HotkeyServiceStart, AKeyOfZeroIsRepairedToTheDefault) {
    for (const auto& [mods, call] : {std::pair(0, "register 3+13"), {8, "register 8+13"}}) {
        Settings.HotkeyVk = 0;
        Settings.HotkeyMods = static_cast<std::uint16_t>(mods);
        Hotkey.Install({}, true);
        EXPECT_EQ(std::ranges::count(Calls, call), 1);
        Hotkey.Stop();
    }
}

TEST(DoublePress, OnlyASecondPressWithinHalfASecondCounts) {
    const std::pair<std::uint32_t, bool> presses[] = {
        {10'000, false},      {10'500, true},  // in time
        {20'000, false},      {20'100, true},
        {20'200, false},                       // the third is a first press again
        {20'701, false},      {20'800, true},  // too late, so a first press too
        {0xFFFF'FF00, false}, {0xFFFF'FF80, true},
        {0xFFFF'FFF0, false}, {0x80, true}};  // the tick count wraps
    DoublePress press;
    for (const auto& [tick, counts] : presses) {
        EXPECT_EQ(press.Press(true, tick), counts) << tick;
    }
    EXPECT_TRUE(press.Press(false, 20'000));  // off
}

}  // namespace
}  // namespace vbr

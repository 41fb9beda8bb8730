// SPDX-License-Identifier: MIT
#include "shell/hotkey_service.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/exchange_fixture.h"
#include "fakes/fake_hotkeys.h"
#include "fakes/fake_shared_memory.h"
#include "fakes/native_profile_store.h"
#include "platform/object_names.h"
#include "shell/double_press.h"

namespace vbr {
namespace {

const std::string kArea = Utf16ToUtf8(kAreaInterchange);
const std::string kSettingsArea = Utf16ToUtf8(kAreaSettings);

class HotkeyServiceStart : public testing::Test, protected ExchangeFixture {
  protected:
    // The calls of a start that must fail and leave nothing behind.
    Journal FailedStart(bool libraryExists = true) {
        Calls.clear();
        messages_.clear();
        errorText_ = service_.Install({}, libraryExists).value_or(u"none");
        EXPECT_FALSE(service_.IsInstalled());
        EXPECT_TRUE(Objects.Owned.empty());
        return Calls;
    }

    MessageList messages_;
    std::u16string errorText_;
    FakeSharedMemory memory_{&Calls};
    FakeHotkeys hotkeys_{Calls};
    FakeWaiter waiter_{Calls};
    NativeProfileStore profile_;
    CVBRSettings settings_{profile_, {}};
    HotkeyService service_{{.Settings = settings_,
                            .Hooks = Service,
                            .Waiter = waiter_,
                            .Hotkeys = hotkeys_,
                            .Objects = Objects,
                            .Memory = memory_,
                            .Log = Log,
                            .Messages = messages_}};
};

TEST_F(HotkeyServiceStart, StopLeavesNothingBehindAndTheLibraryGoesBeforeWhatItUses) {
    EXPECT_EQ(service_.Install({}, true), std::nullopt);
    EXPECT_TRUE(Objects.Exists(kEventDataNeeded) && Objects.Exists(kEventDataCompleted));
    EXPECT_EQ(memory_.Blocks[std::u16string(kAreaSettings)], SharedSettingsText(13, 3, false, u""));
    Calls.clear();
    service_.Stop();
    EXPECT_EQ(Calls.front(), "uninstall");
    EXPECT_EQ(Calls.back(), "close " + kArea);
    EXPECT_EQ(std::ranges::count(Calls, "unregister"), 1);
    EXPECT_TRUE(Objects.Owned.empty());
    EXPECT_TRUE(messages_.empty());
}

TEST_F(HotkeyServiceStart, WithoutAllSharedObjectsNoKeyIsRegistered) {
    for (const std::u16string_view refused : {kEventDataNeeded, kEventDataCompleted}) {
        Objects.Refused = {refused};
        EXPECT_EQ(FailedStart(), (Journal{"make " + kArea, "close " + kArea}));
        EXPECT_EQ(errorText_, u"ERROR: Cannot create wait objects");
        EXPECT_EQ(messages_, MessageList{errorText_});
    }
    Objects.Refused.clear();
    memory_.Fails = true;
    EXPECT_EQ(FailedStart(), Journal());
}

TEST_F(HotkeyServiceStart, AKeyThatIsTakenClosesTheSharedObjects) {
    hotkeys_.Error = SystemError{1409, u"taken"};
    EXPECT_EQ(FailedStart(), (Journal{"make " + kArea, "register 3+13", "close " + kArea}));
    EXPECT_EQ(messages_, (MessageList{u"Cannot register hotkey. Error: 1409",
                                      u"ERROR: Cannot register hot key Ctrl+Alt+Key13"}));
    EXPECT_EQ(errorText_, Concat(u"\n\n", messages_[0], u"\n", messages_[1]));
}

TEST_F(HotkeyServiceStart, ALibraryThatFailsGivesKeyAndObjectsBack) {
    Library.InstallResult = false;
    Library.ErrorCode = 3;
    EXPECT_EQ(FailedStart(), (Journal{"make " + kArea, "register 3+13", "make " + kSettingsArea,
                                      "write " + kSettingsArea, "load", "install", "unload",
                                      "unregister", "close " + kArea}));
    EXPECT_EQ(errorText_,
              u"ERROR: Cannot kernel DLL install\nDLL path: L:\\lib.dll\n\n"
              u"Cant install hook\nError code: 3");
    EXPECT_EQ(messages_, MessageList{errorText_});
    Library.Loads = false;
    FailedStart(false);
    EXPECT_EQ(errorText_,
              u"ERROR: Cannot kernel DLL install\nDLL not found: L:\\lib.dll\n\n"
              u"Cant load DLL\nError code: 4");
}

TEST_F(HotkeyServiceStart, WithoutTheWaitForQueriesAllIsUndone) {
    waiter_.Starts = false;
    EXPECT_EQ(FailedStart().back(), "close " + kArea);
    EXPECT_EQ(errorText_, u"ERROR: Cannot start wait thread for query");
}

TEST_F(HotkeyServiceStart, AWaitThatFailedBeginsAnewWhileTheServiceIsOn) {
    service_.RestartWait();
    EXPECT_EQ(Calls, Journal());
    service_.Install({}, true);
    service_.RestartWait();
    EXPECT_EQ(Calls.back(), "wait");
    EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "wait"), 2);
}

TEST_F(HotkeyServiceStart, AKeyOfZeroIsRepairedToTheDefault) {
    for (const auto& [mods, call] :
         std::map<std::uint16_t, std::string>{{0, "register 3+13"}, {8, "register 8+13"}}) {
        settings_.HotkeyVk = 0;
        settings_.HotkeyMods = mods;
        service_.Install({}, true);
        EXPECT_EQ(Calls[1], call);
        service_.Stop();
        Calls.clear();
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

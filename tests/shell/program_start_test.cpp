// SPDX-License-Identifier: MIT
#include <algorithm>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/fake_autostart.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_named_objects.h"
#include "fakes/journal.h"
#include "fakes/memory_log.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "platform/object_names.h"
#include "shell/command_line.h"
#include "shell/instance_control.h"
#include "shell/settings_reader.h"

namespace vbr {
namespace {

std::string FlagsOf(const CVBRCmdLine& line) {
    std::string set;
    set += line.Exit() ? "exit " : "";
    set += line.Ua() ? "ua " : "";
    set += line.AutoLoad() ? "autoload " : "";
    set += line.NoInstall() ? "noinstall " : "";
    set += line.Help() ? "help " : "";
    set += line.Edit() ? "edit " : "";
    set += line.AsAdmin() ? "asadmin " : "";
    set += line.ShowMenu() ? "showmenu " : "";
    set += line.Cfu() ? "cfu " : "";
    return set;
}

TEST(CommandLine, KeysSetTheirFlags) {
    const std::pair<std::u16string_view, const char*> cases[] = {
        {u"", ""},
        {u"edit /unknown", ""},
        {u"/EDIT", "edit "},
        {u"-Edit foo", "edit "},
        {u"/exit\tnow", "exit "},
        {u"/ua", "exit ua "},
        {u"/? -autoload /noinstall", "autoload noinstall help "},
        {u"/asadmin /showmenu /cfu", "asadmin showmenu cfu "},
        {u"x/edit", "edit "},         // what stands before a key doesn't matter
        {u"/editor", ""},             // a key ends where white space follows
        {u"/editor /edit", ""},       // a later occurrence of a spelling isn't seen
        {u"/EDITOR /edit", "edit "},  // one in the key's own case comes first
        {u"/editor -edit", "edit "}};
    for (const auto& [text, flags] : cases) {
        EXPECT_EQ(FlagsOf(CVBRCmdLine(text)), flags) << Utf16ToUtf8(text);
    }
}

TEST(SettingsStart, AHeldFileIsTriedForTwoSecondsAtMost) {
    const TempFolder folder;
    const auto file = folder.Path() / "Settings.ini";
    folder.Write("Settings.ini", "[Settings]\r\nWriteLog=1\r\n");
    for (const auto& [heldMs, read] : {std::pair(0U, true), {1700U, true}, {60'000U, false}}) {
        NativeProfileStore profile;
        FakeClock clock;
        profile.IsHeld = [&, ms = heldMs](const auto&) { return clock.Tick < ms; };
        CVBRSettings settings(profile, {file, file, {}, u"", u""});
        EXPECT_EQ(ReadSettingsAtStart(settings, clock), read) << heldMs;
        EXPECT_EQ(settings.WriteLog, read);
        EXPECT_GE(clock.Tick, std::min(heldMs, 2000U));
        EXPECT_LE(clock.Tick, std::min(heldMs + 100, 2000U));
    }
}

using Names = std::vector<std::u16string_view>;

class InstanceStart : public testing::Test {
  protected:
    std::optional<int> Settle(std::u16string_view cmdLine, std::uint32_t delaySeconds = 0) {
        objects_.Signals.clear();
        objects_.Pulses.clear();
        return control_.Settle(CVBRCmdLine(cmdLine), delaySeconds,
                               {.MakeLanguage = [this] { calls_.push_back("language"); },
                                .ShowHelp = [this] { calls_.push_back("help"); },
                                .LetOthersToFront = [this] { calls_.push_back("let to front"); }});
    }
    void RunAnother() {
        objects_.Others = {kEventInstance, kEventEdit,        kEventShowMenu,
                           kEventExit,     kEventAlreadyWork, kEventCheckForUpdates};
    }
    void AnswerWaits(std::u16string_view name, std::uint32_t ms, WaitResult result) {
        objects_.OnWait = [=](std::u16string_view waitName, std::uint32_t waitMs) {
            EXPECT_EQ(waitName, name);
            EXPECT_EQ(waitMs, ms);
            return result;
        };
    }

    Journal calls_;
    FakeNamedObjects objects_;
    FakeAutostart autostart_;
    MemoryLog log_;
    FakeClock clock_;
    TakenNames taken_{log_};
    InstanceControl control_{objects_, autostart_, clock_, taken_, log_};
};

TEST_F(InstanceStart, ARunningInstanceIsSignalledAndThisProcessEnds) {
    const std::tuple<std::u16string_view, int, Names, Names> cases[] = {
        {u"", 1, {kEventAlreadyWork}, {}},
        {u"/autoload", 1, {kEventAlreadyWork}, {}},
        {u"/exit /cfu", 1, {kEventExit}, {}},
        {u"/ua", 1, {kEventExit}, {}},
        {u"/exit /showmenu", 1, {kEventShowMenu}, {}},
        {u"/cfu", 1, {}, {kEventCheckForUpdates}},
        {u"/asadmin", 1, {kEventExit, kEventAlreadyWork}, {}},  // it stays
        {u"/edit /exit", 0, {kEventEdit}, {}},
        {u"/?", 0, {}, {}}};
    RunAnother();
    for (const auto& [text, code, signals, pulses] : cases) {
        EXPECT_EQ(Settle(text), code) << Utf16ToUtf8(text);
        EXPECT_EQ(objects_.Signals, signals) << Utf16ToUtf8(text);
        EXPECT_EQ(objects_.Pulses, pulses) << Utf16ToUtf8(text);
    }
    EXPECT_EQ(calls_.back(), "help");  // in the user's language, asked for by the last alone
    EXPECT_EQ(std::ranges::count(calls_, "help"), 1);
    EXPECT_EQ(std::ranges::count(calls_, "let to front"), 8);  // not by the help
    EXPECT_EQ(control_.StopEvent(), nullptr);
}

TEST_F(InstanceStart, WithoutARunningInstanceItBecomesTheResidentOneUntilReleased) {
    for (const std::u16string_view text :
         {u"", u"/autoload", u"/edit", u"/showmenu", u"/cfu", u"/asadmin"}) {
        EXPECT_EQ(Settle(text), std::nullopt) << Utf16ToUtf8(text);
        EXPECT_TRUE(objects_.Exists(kEventInstance));
        control_.Release();
        EXPECT_FALSE(objects_.Exists(kEventInstance));
    }
    EXPECT_FALSE(objects_.Made.contains(kEventAutoLoadWait));  // without a delay
    EXPECT_EQ(objects_.Made[kEventInstance], std::pair(EventReset::Manual, ObjectAccess::World));
}

TEST_F(InstanceStart, OfTwoStartsInOneInstantTheLaterOneSignalsTheOther) {
    objects_.BeforeCreate = [this](std::u16string_view name) {
        if (name == kEventInstance) {
            RunAnother();
        }
    };
    for (const auto& [text, signal] :
         {std::pair(u"", kEventAlreadyWork), {u"/showmenu", kEventShowMenu}}) {
        objects_.Others.clear();
        EXPECT_EQ(Settle(text), 1);
        EXPECT_EQ(objects_.Signals, Names{signal});
        EXPECT_EQ(control_.StopEvent(), nullptr);
        EXPECT_FALSE(objects_.Owned.contains(kEventInstance));
    }
}

TEST_F(InstanceStart, TheInstanceEventIsGuardedAgainstClosing) {
    {
        InstanceControl forgotten(objects_, autostart_, clock_, taken_, log_);
        forgotten.Settle(CVBRCmdLine(u""), 0, {[] {}, [] {}, [] {}});
    }
    EXPECT_TRUE(objects_.Exists(kEventInstance));
}

TEST_F(InstanceStart, ANameThatAnotherProgramHoldsIsToldAndKeepsNobodyFromRunning) {
    // Of another kind, or closed to this user.
    objects_.Refused = {kEventInstance};
    EXPECT_EQ(Settle(u""), std::nullopt);
    EXPECT_TRUE(control_.StopEvent());
    EXPECT_TRUE(log_.Tells(Concat(u"Another program holds the name ", kEventInstance)));
    int told = 0;
    taken_.OnNoted([&told] { ++told; });
    EXPECT_EQ(told, 1);
    // The next start finds this instance all the same.
    objects_.Others = {kEventAlreadyWork};
    EXPECT_EQ(Settle(u""), 1);
    objects_.Refused.insert(u"");
    objects_.Others.clear();
    EXPECT_EQ(Settle(u""), 2);
    // An event of its kind, behind which nobody listens.
    objects_.Refused.clear();
    objects_.Others = {kEventInstance};
    EXPECT_EQ(Settle(u"/exit"), 1);
    EXPECT_EQ(Settle(u""), std::nullopt);
    EXPECT_EQ(told, 3);
    EXPECT_LE(clock_.Tick, 7000U);
    // The event of an autostart delay that nobody keeps.
    objects_.Others = {kEventAutoLoadWait};
    EXPECT_EQ(Settle(u""), std::nullopt);
    EXPECT_EQ(told, 4);
}

TEST_F(InstanceStart, AnInstanceThatEndsIsWaitedFor) {
    objects_.Others = {kEventInstance};
    clock_.WhileAsleep = [this] {
        if (clock_.Tick > 2000) {
            objects_.Others.clear();
        }
    };
    EXPECT_EQ(Settle(u""), std::nullopt);
    EXPECT_TRUE(objects_.Owned.contains(kEventInstance));
    EXPECT_FALSE(log_.Tells(u"Another program holds"));
}

TEST_F(InstanceStart, AutoloadKeepsTheDelayAndGoesOnHoweverItEnds) {
    for (const WaitResult result :
         {WaitResult::Signalled, WaitResult::TimedOut, WaitResult::Failed}) {
        AnswerWaits(kEventAutoLoadWait, 30000, result);
        EXPECT_EQ(Settle(u"/autoload", 30), std::nullopt);
        EXPECT_TRUE(objects_.Made.contains(kEventAutoLoadWait));
        EXPECT_FALSE(objects_.Exists(kEventAutoLoadWait));
        control_.Release();
    }
    objects_.Refused = {kEventAutoLoadWait};
    EXPECT_EQ(Settle(u"/autoload", 30), std::nullopt);
}

TEST_F(InstanceStart, ATakeOverThatCannotWaitLogsTheReasonAndGoesOn) {
    EXPECT_EQ(Settle(u"/asadmin"), std::nullopt);
    EXPECT_TRUE(log_.Tells(u"Error Code: 2\nnot there"));
    control_.Release();
    objects_.Others = {kEventTakeOver};
    AnswerWaits(kEventTakeOver, 10000, WaitResult::TimedOut);
    EXPECT_EQ(Settle(u"/asadmin"), std::nullopt);
}

TEST_F(InstanceStart, TheInstanceThatIsTakenOverLetsGoOfTheNameBeforeItTellsTheOther) {
    EXPECT_EQ(Settle(u""), std::nullopt);
    objects_.Refused = {kEventTakeOver};
    EXPECT_FALSE(control_.PrepareTakeOver());
    objects_.Refused.clear();
    EXPECT_TRUE(control_.PrepareTakeOver());
    EXPECT_EQ(objects_.Made[kEventTakeOver], std::pair(EventReset::Manual, ObjectAccess::Default));
    EXPECT_TRUE(objects_.Exists(kEventTakeOver));
    bool wasFree = false;
    objects_.OnSet = [&](std::u16string_view name) {
        wasFree = name == kEventTakeOver && !objects_.Exists(kEventInstance);
    };
    control_.Release();
    EXPECT_TRUE(wasFree);
    EXPECT_FALSE(objects_.Exists(kEventTakeOver));
}

}  // namespace
}  // namespace vbr

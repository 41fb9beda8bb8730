// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/shell_fixture.h"
#include "resources/resource_ids.h"
#include "settings/embedded_strings.h"
#include "shell/choice_block.h"
#include "shell/tray_texts.h"
#include "web/vbr_url.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TrayTip, LosesWholeLinesFromTheEndUntilItFits) {
    const std::u16string line(60, u'x');
    const std::u16string full(126, u'f');
    EXPECT_EQ(TrayTip(line, line + u"\n3456"), line + u"\n" + line + u"\n3456");
    EXPECT_EQ(TrayTip(line, line + u"\n34567\nhint"), line + u"\n" + line);
    EXPECT_EQ(TrayTip(full, u"details"), full);
    EXPECT_EQ(TrayTip(full + u"f", u"details"), full);
    EXPECT_EQ(TrayTip(full.substr(1) + u"🙂", u"details"), full.substr(1));
}

TEST(TrayTexts, TellStateHotKeyAndFolder) {
    const EmbeddedStrings strings;
    TrayState state{.HotkeyName = u"Ctrl+F5",
                    .PhrasesFolder = u"C:\\P\\",
                    .Phrases = {.Total = 5, .Enabled = 4}};
    EXPECT_TRUE(TrayFirstLine(state, strings).ends_with(u" - OFF"));
    EXPECT_TRUE(GetTrayInfoText(state, strings)
                    .starts_with(u"Hot key: Ctrl+F5\nFolder: C:\\P [4/5]\nRight click"));
}

TEST(ChoiceBlock, NeedsChoiceAndTarget) {
    std::vector<std::byte> block(138);
    block[0] = std::byte{0xFC};
    block[1] = block[2] = block[3] = std::byte{0xFF};
    block[134] = std::byte{0x34};
    block[135] = std::byte{0x12};
    const auto choice = ReadChoiceBlock(block);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Choice, -4);
    EXPECT_EQ(choice->Target, 0x1234U);
    block.pop_back();
    EXPECT_FALSE(ReadChoiceBlock(block));
    EXPECT_FALSE(ReadChoiceBlock({}));
}

TEST(Announcer, TellsAllButTheSenderAndThoseWhoLeftMeanwhile) {
    Announcer<bool> list;
    int who[3] = {};
    list.Add(&who[0], [&](bool) { ++who[0]; });
    list.Add(&who[1], [&](bool) { ++who[1]; });
    list.Add(&who[2], [&](bool) { ++who[2]; });
    list.Announce(true, &who[1]);
    list.Remove(&who[0]);
    list.Add(&who[0], [&](bool) { list.Remove(&who[2]); });
    list.Add(&who[2], [&](bool) { ++who[2]; });
    list.Announce(false);
    EXPECT_THAT(who, ElementsAre(1, 1, 2));
}

class Tray : public testing::Test, protected ShellFixture {
  protected:
    const MenuEntry& Entry(int id) {
        menu_ = TheMenu.Entries(true);
        return *FindCommand(menu_, id);
    }
    bool IsOn(int id) { return Entry(id).Checked; }
    bool CanBeChosen(int id) { return !Entry(id).Grayed; }

    std::vector<MenuEntry> menu_;
};

TEST_F(Tray, TogglesShowTheirStateKeepItAndTurnItBack) {
    // With the key of the settings file.
    const std::pair<int, std::u16string> cases[] = {
        {kCmdSounds, u"SoundOnEventsV094"},
        {kCmdWriteLog, u"WriteLog"},
        {kCmdHistoryPaneOnStart, u"ShowHistoryPaneOnStart"},
        {kCmdSaveHistoryOnExit, u"SaveClipboardHistory_v198"}};
    for (const auto& [command, key] : cases) {
        for (int round = 0; round < 2; ++round) {
            const bool was = IsOn(command);
            Commands.Run(command);
            Macros.Log.On = !LogOfUser.Running.empty();
            EXPECT_NE(IsOn(command), was) << command;
            EXPECT_TRUE(CanBeChosen(command));
            EXPECT_EQ(Profile.ReadString(Settings.Files().Chosen, u"Settings", key),
                      was ? u"0" : u"1");
        }
    }
    EXPECT_EQ(Capture.Saves, 2);
}

TEST_F(Tray, SoundsThatAreTurnedOnAreHeardAtOnceAndNoneWhenTurnedOff) {
    Settings.SoundOnEvents = false;
    AreSoundsOn = [this] { return Settings.SoundOnEvents; };
    Commands.Run(kCmdSounds);
    EXPECT_THAT(Heard(), ElementsAre("SystemNotification"));
    Commands.Run(kCmdSounds);
    Sounds.PlayEventSound(EventSound::Started);
    EXPECT_THAT(Heard(), ElementsAre("SystemNotification"));
}

TEST_F(Tray, TheServiceIsTurnedOffAndOnAndAFailureIsTold) {
    EXPECT_TRUE(IsOn(kCmdEnableService));
    Commands.Run(kCmdEnableService);
    EXPECT_FALSE(IsOn(kCmdEnableService));
    EXPECT_THAT(Calls, testing::Contains("wait no more"));
    Hotkeys.Error = SystemError{1409, u"taken"};
    Commands.Run(kCmdEnableService);
    EXPECT_FALSE(IsOn(kCmdEnableService));
    ASSERT_EQ(View.Messages.size(), 1U);
    EXPECT_NE(View.Messages[0].find(u"Ctrl+Alt+Key13"), std::u16string::npos);
    Hotkeys.Error.reset();
    Commands.Run(kCmdEnableService);
    EXPECT_TRUE(IsOn(kCmdEnableService));
    EXPECT_THAT(View.Icons, testing::Each(TrayIconMode::ModifyWithBalloon));
}

TEST_F(Tray, TheHistoryIsKeptKeptAnewAndCleared) {
    int announced = 0;
    History.KeepObservers().Add(this, [&](bool keeps) { announced += keeps ? 10 : 1; });
    Capture.Keeping = false;
    EXPECT_FALSE(IsOn(kCmdKeepHistory));
    EXPECT_FALSE(CanBeChosen(kCmdRekeepHistory));
    EXPECT_FALSE(CanBeChosen(kCmdClearHistory));
    Commands.Run(kCmdKeepHistory);
    EXPECT_TRUE(IsOn(kCmdKeepHistory));
    const int starts = Capture.Starts;
    Commands.Run(kCmdRekeepHistory);
    EXPECT_EQ(Capture.Starts, starts + 1);
    EXPECT_TRUE(IsOn(kCmdKeepHistory));
    Clips.AddClips(3);
    EXPECT_TRUE(CanBeChosen(kCmdClearHistory));
    Commands.Run(kCmdClearHistory);
    EXPECT_EQ(Clips.Queue.GetCount(), 0U);
    EXPECT_EQ(Capture.Changes, 1);
    EXPECT_EQ(Capture.Saves, 1);
    Commands.Run(kCmdKeepHistory);
    EXPECT_FALSE(IsOn(kCmdKeepHistory));
    EXPECT_EQ(announced, 21);
}

TEST_F(Tray, RereadingShowsOneCountInBracketsWithABalloon) {
    EXPECT_EQ(Entry(kCmdRereadPhrases).Text, u"Reread Phrases [0/0]");
    Phrases.Write("p.vellumbridge");
    Commands.Run(kCmdRereadPhrases);
    EXPECT_EQ(Entry(kCmdRereadPhrases).Text, u"Reread Phrases [1/1]");
    EXPECT_EQ(View.Icons.back(), TrayIconMode::ModifyWithBalloon);
    EXPECT_THAT(View.Blinks, IsEmpty());
}

TEST_F(Tray, CommandsThatOpenSomethingOpenIt) {
    Commands.Run(kCmdVisitForum);
    Commands.Run(kCmdEmailToUs);
    ASSERT_EQ(Opener.Opened.size(), 2U);
    EXPECT_EQ(Opener.Opened[0], CVBRUrl::GetForumUrl());
    EXPECT_TRUE(Opener.Opened[1].starts_with(u"mailto:"));
    Commands.Run(kCmdShowTrayMenu);
    EXPECT_THAT(View.Menus, ElementsAre(TrayMenuPlace::Mouse));
    AddPhrase("p", u"text");
    Commands.Run(kCmdShowPhraseMenu);
    Expire(kTimerPhraseMenu);
    EXPECT_FALSE(Presenter.Shown.empty());
    Commands.Run(kCmdExit);
    EXPECT_TRUE(View.IsClosed);
}

TEST_F(Tray, ACommandThatTheProgramLacksIsGrayAndRunsNothing) {
    for (const int id : {kCmdAbout, kCmdCheckForUpdates, kCmdTogglePane, kCmdMenuOnMouseEvent}) {
        EXPECT_FALSE(CanBeChosen(id));
        Commands.Run(id);
        EXPECT_TRUE(Told(Concat(u"Command ", id, u" is not available")));
    }
    Commands.Run(33500);
    EXPECT_TRUE(Told(u"Command 33500 is not available"));
}

// A translation that has brackets of its own.
class TranslatedStrings : public EmbeddedStrings {
  public:
    void TranslateMenu(std::vector<MenuEntry>& entries) const override {
        for (MenuEntry& entry : entries) {
            entry.Text = u"Neu lesen  [1/2]";
            TranslateMenu(entry.Children);
        }
    }
};

TEST_F(Tray, TheCountReplacesTheBracketsOfATranslation) {
    const TranslatedStrings texts;
    TrayMenu menu({Commands, Service, TrayClips, Settings, History, texts});
    EXPECT_EQ(FindCommand(menu.Entries(false), kCmdRereadPhrases)->Text, u"Neu lesen [0/0]");
}

TEST_F(Tray, AnIconThatTheShellRefusesIsTriedAgainAndThenTellsHowTheStartWent) {
    View.TakesIcons = false;
    Display.TellAtStart(u"\nthe start failed");
    Display.InstallWithRetry();
    Expire(kTimerInstallIcon);
    EXPECT_THAT(Heard(), IsEmpty());
    View.TakesIcons = true;
    Expire(kTimerInstallIcon);
    EXPECT_FALSE(View.Timers.contains(kTimerInstallIcon));
    EXPECT_THAT(Heard(), ElementsAre("start.wav"));
    EXPECT_EQ(View.Balloon, u"the start failed");
    // What else there is to tell comes behind it, once.
    Display.TellAtStart(u"more");
    Display.TellAtStart(u"more");
    EXPECT_EQ(View.Balloon, u"the start failed");
    Expire(kTimerHideBalloon);
    EXPECT_EQ(View.Balloon, u"more");
    Expire(kTimerHideBalloon);
    EXPECT_EQ(View.Balloon, u"");
    // The shell announces itself again, perhaps with the icon still there.
    View.TakesIcons = false;
    View.Icons = {TrayIconMode::Modify};
    Display.OnTaskbarCreated();
    EXPECT_THAT(View.Icons, ElementsAre(TrayIconMode::Add));
    EXPECT_EQ(View.Balloon, u"");
    for (int i = 1; i < 200; ++i) {
        Expire(kTimerInstallIcon);
    }
    EXPECT_FALSE(View.Timers.contains(kTimerInstallIcon));
}

TEST_F(Tray, AnElevatedProgramTellsOnceWhereItsPhrasesAreOpenToOthers) {
    Requests.TellOfOpenPlaces(Locations, Access);
    Display.InstallWithRetry();
    EXPECT_EQ(View.Balloon, u"");
    Access.OpenToOthers = {Service.PhrasesFolder()};
    Requests.TellOfOpenPlaces(Locations, Access);
    EXPECT_EQ(View.Balloon, Macros.Texts.LoadString(kStrPlacesOpenToOthers));
    EXPECT_TRUE(Macros.Log.Tells(u"any program can write " + Service.PhrasesFolder()));
    View.Balloon.clear();
    Requests.TellOfOpenPlaces(Locations, Access);
    EXPECT_EQ(View.Balloon, u"");
    for (const int text : {kStrPlacesOpenToOthers, kStrNamesTaken}) {
        EXPECT_LE(Macros.Texts.LoadString(text).size(), 255U);  // what a balloon holds
    }
}

TEST_F(Tray, TheEditorsEndRereadsSettingsAndPhrasesAndBlinksFourTimes) {
    AddPhrase("p", u"text");
    Settings.ClipboardHistory = true;
    Settings.Save();
    Phrases.Write("q.vellumbridge");
    Settings.ClipboardHistory = false;
    Capture.Keeping = false;
    Requests.OnEditorEnded();
    EXPECT_EQ(PhraseCount(), 2U);
    EXPECT_TRUE(History.IsKeeping());
    EXPECT_EQ(View.Icons.back(), TrayIconMode::Modify);
    for (int i = 1; i < 8; ++i) {
        Expire(kTimerBlink);
    }
    EXPECT_FALSE(View.Timers.contains(kTimerBlink));
    EXPECT_EQ(View.Blinks, (std::vector{true, false, true, false, true, false, true, false}));
}

TEST_F(Tray, AnEditorThatWasStartedHereBringsHotKeyAndLanguageWithOneBlink) {
    Requests.OnEditorState(EditorState::Runs);
    Settings.HotkeyVk = 112;
    Settings.SetLanguage(u"German.lng");
    Settings.Save();
    Settings.HotkeyVk = 13;
    Settings.SetLanguage(u"");
    Requests.OnEditorEnded();
    Expire(kTimerBlink);
    Requests.OnEditorState(EditorState::Closed);
    EXPECT_THAT(Calls, testing::IsSupersetOf({"unregister", "register 3+112"}));
    EXPECT_EQ(View.Icons.back(), TrayIconMode::ModifyWithBalloon);
    for (; View.Timers.contains(kTimerBlink);) {
        Expire(kTimerBlink);
    }
    // The second one only lasts longer.
    EXPECT_EQ(View.Blinks,
              (std::vector{true, false, true, false, true, false, true, false, true, false}));
    EXPECT_EQ(std::ranges::count(Heard(), "SystemNotification"), 1);
}

TEST_F(Tray, AHotKeyThatIsTakenIsNamedAndAClickLeadsToWhereAnotherIsChosen) {
    Commands.Run(kCmdEnableService);
    Requests.OnTrayNotify(kNoticeBalloonClick);
    EXPECT_EQ(View.Menus.size(), 1U);
    Hotkeys.Error = SystemError{1409, u"taken"};
    Requests.OnInstanceSignal(kSignalAlreadyWorks);
    EXPECT_NE(View.Balloon.find(u"hot key Ctrl+Alt+Key13"), std::u16string::npos);
    EXPECT_TRUE(View.Balloon.ends_with(Macros.Texts.LoadString(kStrTakeAnotherHotKey)));
    EXPECT_LE(View.Balloon.size(), 255U);
    Requests.OnTrayNotify(kNoticeBalloonClick);
    EXPECT_EQ(View.Menus.size(), 1U);
    EXPECT_TRUE(SeesStart(StartWay::Elevated, u" /settings"));
}

TEST_F(Tray, TheIconsNoticesOpenTheMenuWhereTheHandIs) {
    for (const std::uint32_t notice : {512U, 513U, 516U, 1026U, 1027U, 1028U}) {
        Requests.OnTrayNotify(notice);
    }
    EXPECT_THAT(View.Menus, IsEmpty());
    for (const std::uint32_t notice :
         {kNoticeLeftButtonUp, kNoticeRightButtonUp, kNoticeBalloonClick, kNoticeSelect,
          kNoticeKeySelect, kNoticeContextMenu}) {
        Requests.OnTrayNotify(notice);
    }
    using enum TrayMenuPlace;
    EXPECT_THAT(View.Menus, ElementsAre(Mouse, Mouse, Mouse, Icon, Icon, Icon));
}

TEST_F(Tray, EntriesTellCountsDelayAndWhatCanBeDone) {
    Settings.DelayAutoLoadSeconds = 30;
    EXPECT_EQ(Entry(kCmdStartWithWindows).Text, u"Start With Windows (+30sec)");
    Settings.DelayAutoLoadSeconds = 0;
    EXPECT_EQ(Entry(kCmdStartWithWindows).Text, u"Start With Windows");
    Settings.AutoCheckForUpdates = true;
    EXPECT_TRUE(IsOn(kCmdCheckForUpdates));
    EXPECT_FALSE(CanBeChosen(kCmdSavePhraseFromClipboard));
    CopyText(u"text");
    EXPECT_TRUE(CanBeChosen(kCmdSavePhraseFromClipboard));
    Settings.ClipboardHistoryMax = 40;
    Capture.Keeping = true;
    Clips.AddClips(3);
    const auto menu = TheMenu.Entries(false);
    const auto history = std::ranges::find_if(
        menu, [](const MenuEntry& entry) { return IsHistoryMenu(entry.Children); });
    EXPECT_EQ(history->Text, u"Clipboard History [3/40]");
    EXPECT_TRUE(history->Checked);
    EXPECT_EQ(history->Children.size(), 4U);
}

TEST_F(Tray, ClipsKeepTheirEntriesWhileTheMenuIsOpen) {
    Clips.AddClip(u"\tA & B");
    Clips.AddClip(u"on the clipboard");
    Clips.AddClip(u"newest");
    CopyText(u"on the clipboard");
    const MenuEntry* first = &Entry(kCmdFirstTrayHistory);
    EXPECT_TRUE(first[-1].IsSeparator());
    EXPECT_EQ(first[0].Text, u" newest");
    EXPECT_TRUE(!first[0].Default && first[1].Default && !first[2].Default);
    EXPECT_EQ(first[2].Text, u" A && B");
    const std::uint32_t id = Clips.Queue.GetItem(2)->id;
    Clips.AddClip(u"copied under the open menu");
    Commands.Run(kCmdFirstTrayHistory + 2);
    EXPECT_THAT(CopiedClips, ElementsAre(id));
    Commands.Run(kCmdFirstTrayHistory + 3);  // not in the menu
    EXPECT_EQ(CopiedClips.size(), 1U);
    TrayClips.Forget();
    Commands.Run(kCmdFirstTrayHistory + 3);  // another program's, by the place
    EXPECT_THAT(CopiedClips, ElementsAre(id, id));
    Commands.Run(kCmdLastTrayHistory);
    EXPECT_TRUE(Told(u"no clip for command 34099"));
    for (int i = 0; i < 200; ++i) {
        Clips.AddClip(Concat(u"clip ", i));
    }
    EXPECT_EQ(Entry(kCmdLastTrayHistory).Text, u" clip 100");
    EXPECT_FALSE(FindCommand(menu_, kCmdLastTrayHistory + 1));
    // Without clips nothing parts them off.
    Clips.Queue.Clear();
    EXPECT_EQ(FindCommand(TheMenu.Entries(true), kCmdFirstTrayHistory), nullptr);
}

TEST_F(Tray, ALogThatCannotBeStartedIsToldAndNotChecked) {
    Macros.Log.On = false;
    LogOfUser.CanStart = false;
    Commands.Run(kCmdWriteLog);
    EXPECT_FALSE(IsOn(kCmdWriteLog));
    EXPECT_FALSE(Settings.WriteLog);
    ASSERT_EQ(View.Messages.size(), 1U);
    EXPECT_TRUE(View.Messages[0].ends_with(Locations.LogFile));
}

class HeldSettings : public Tray {
  protected:
    HeldSettings() {
        Phrases.Folder.Write("settings.txt", "[Settings]\r\n" + kUsersOwn);
        Profile.IsHeld = [this](const auto&) { return isHeld_; };
        Settings.Load();
        SettingsFile.TryAgainLater();
        Calls.clear();
    }
    std::string File() const { return Phrases.Folder.Read("settings.txt"); }

    const std::string kUsersOwn =
        "Hotkey=131109\r\nSoundOnEventsV094=0\r\nWriteLog=1\r\nClipboardHistoryMax=500\r\n";
    bool isHeld_ = true;
};

TEST_F(HeldSettings, AreTriedWithGrowingPausesAndTakeEffectWhenTheyAreRead) {
    for (int i = 0; i < 8; ++i) {
        Expire(kTimerReadSettings);
    }
    EXPECT_THAT(View.Pauses,
                ElementsAre(1000, 2000, 4000, 8000, 16'000, 32'000, 64'000, 64'000, 64'000));
    // Its limit is a default: it would delete what the user keeps.
    History.StartWithRetry();
    Commands.Run(kCmdKeepHistory);
    EXPECT_EQ(Capture.Starts, 0);
    Phrases.Write("p.vellumbridge");
    isHeld_ = false;
    Calls.clear();
    Expire(kTimerReadSettings);
    EXPECT_THAT(Calls, testing::IsSupersetOf({"unregister", "register 2+37"}));
    EXPECT_TRUE(Service.IsServiceInstalled());
    EXPECT_EQ(LogOfUser.Running, u"log.txt");
    EXPECT_EQ(PhraseCount(), 1U);
    EXPECT_TRUE(History.IsKeeping());
    EXPECT_FALSE(View.Timers.contains(kTimerReadSettings));
}

TEST_F(HeldSettings, AreNeverOverwrittenByACommand) {
    const std::string before = File();
    for (const int command :
         {kCmdSounds, kCmdWriteLog, kCmdHistoryPaneOnStart, kCmdSaveHistoryOnExit}) {
        const bool was = IsOn(command);
        Commands.Run(command);
        Macros.Log.On = !LogOfUser.Running.empty();
        EXPECT_NE(IsOn(command), was) << command;
    }
    isHeld_ = false;
    EXPECT_EQ(File(), before);
    EXPECT_TRUE(Told(u"Settings not saved"));
}

TEST_F(HeldSettings, AreReadFirstByACommandWhenTheyCanBe) {
    isHeld_ = false;
    // The user sees sounds that are on.
    ASSERT_TRUE(IsOn(kCmdSounds));
    Commands.Run(kCmdSounds);
    EXPECT_FALSE(IsOn(kCmdSounds));
    EXPECT_THAT(Calls, testing::Contains("register 2+37"));
    EXPECT_THAT(File(), testing::AllOf(testing::HasSubstr("ClipboardHistoryMax=500\r\n"),
                                       testing::HasSubstr("SoundOnEventsV094=0\r\n"),
                                       testing::HasSubstr("PrintLTChars=100\r\n")));
    Expire(kTimerReadSettings);
    EXPECT_FALSE(View.Timers.contains(kTimerReadSettings));
}

TEST_F(HeldSettings, GiveTheHistoryThatTheUserAsksForWhenTheyCanBeRead) {
    isHeld_ = false;
    Commands.Run(kCmdKeepHistory);
    EXPECT_TRUE(History.IsKeeping());
}

TEST_F(HeldSettings, LeaveAServiceOffThatTheUserTurnedOff) {
    Commands.Run(kCmdEnableService);
    isHeld_ = false;
    Requests.OnEditorEnded();
    EXPECT_EQ(Settings.ClipboardHistoryMax, 500U);
    EXPECT_FALSE(Service.IsServiceInstalled());
}

TEST_F(Tray, AHistoryThatCannotStartIsTriedAgainUntilItDoes) {
    Settings.ClipboardHistory = true;
    Capture.Keeping = Capture.CanStart = false;
    Requests.InstallAtStart();
    Expire(kTimerInstallSpy);
    Capture.CanStart = true;
    Expire(kTimerInstallSpy);
    EXPECT_TRUE(History.IsKeeping());
    EXPECT_FALSE(View.Timers.contains(kTimerInstallSpy));
}

TEST_F(Tray, AHistoryThatTheUserTurnedOffStartsByHimAloneAndTakesNothingOfMeanwhile) {
    Settings.ClipboardHistory = true;
    Capture.Keeping = false;
    Requests.InstallAtStart();
    EXPECT_TRUE(History.IsKeeping() && Capture.TookContent);
    // The session stops and resumes it.
    Capture.Stop();
    EXPECT_TRUE(History.Resume() && !Capture.TookContent);
    Commands.Run(kCmdRekeepHistory);
    EXPECT_TRUE(Capture.TookContent);
    Commands.Run(kCmdKeepHistory);
    EXPECT_FALSE(History.Resume());
    Requests.OnEditorEnded();
    History.StartWithRetry();
    EXPECT_FALSE(History.OnInstallSpy());
    EXPECT_FALSE(History.IsKeeping());
    Commands.Run(kCmdKeepHistory);
    EXPECT_TRUE(History.IsKeeping() && !Capture.TookContent);
    Capture.Stop();
    Settings.ClipboardHistory = false;
    EXPECT_TRUE(History.Resume());
}

TEST_F(Tray, ASaveThatFailsIsTriedAgainAndToldWhenItGoesOnFailing) {
    const std::u16string warning = Macros.Texts.LoadString(kStrHistoryNotSaved);
    Capture.State = {.IsWanted = true};
    History.OnSaveEnded();
    EXPECT_EQ(Capture.Saves, 1);
    Capture.State = {.RetryAfter = 500};
    History.OnSaveEnded();
    EXPECT_EQ(View.Pauses.back(), 500U);
    Expire(kTimerSaveAgain);
    EXPECT_EQ(Capture.Saves, 2);
    EXPECT_TRUE(View.Icons.empty());
    Capture.State = {.RetryAfter = 8000, .IsFailing = true};
    History.OnSaveEnded();
    EXPECT_EQ(std::exchange(View.Balloon, u""), warning);
    EXPECT_NE(View.Tip.find(warning), std::u16string::npos);
    History.OnSaveEnded();
    EXPECT_EQ(View.Balloon, u"");
    Capture.State = {};
    History.OnSaveEnded();
    EXPECT_EQ(View.Tip.find(warning), std::u16string::npos);
}

TEST_F(Tray, EachClipboardContentRefreshesTheIconOnceAndACaptureIsHeard) {
    const auto notice = [this](HistoryChange change, std::uint32_t sequence,
                               std::uint32_t code = kNoticeHistoryChanged) {
        History.OnNotice(code, static_cast<std::uint32_t>(change), sequence);
    };
    notice(HistoryChange::AtCreation, 5);
    notice(HistoryChange::Captured, 5);
    EXPECT_EQ(View.Icons.size(), 1U);
    EXPECT_THAT(Heard(), IsEmpty());
    notice(HistoryChange::Captured, 6);
    notice(HistoryChange::Captured, 6, kNoticeHistoryLoaded);
    notice(HistoryChange::ByCommand, 7);
    notice(HistoryChange::Captured, 8, 1);  // another's code
    EXPECT_EQ(View.Icons.size(), 4U);
    EXPECT_THAT(Heard(), ElementsAre("paper.wav"));
}

TEST_F(Tray, ANewLanguageReachesTipsIconAndFollowers) {
    Clips.AddClips(1);
    Clips.History.MenuTip(0) = u"old tip";
    int told = 0;
    Requests.UiObservers().Add(this, [&](UiChange change, std::uint32_t) {
        told += change == UiChange::LanguageApplied ? 1 : 0;
    });
    Requests.OnLanguageChanged();
    EXPECT_EQ(Clips.History.MenuTip(0), u"");
    EXPECT_EQ(View.Icons, std::vector{TrayIconMode::Modify});
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace vbr

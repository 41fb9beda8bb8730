// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/version.h"
#include "fakes/shell_fixture.h"
#include "platform/object_names.h"
#include "resources/resource_ids.h"
#include "settings/editor_arguments.h"
#include "shell/tray_tips.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

TEST(EditorArguments, StandInOneOrderAndAreReadInAny) {
    EXPECT_EQ(EditorArguments({}), u"");
    EXPECT_EQ(EditorArguments({true, true, true}), u" /addfromcb /addseltext /settings");
    EXPECT_EQ(ReadEditorArguments(u"  /AddSelText\t/x /addfromcbx /addfromcb"),
              (EditorRequest{.AddFromClipboard = true, .AddSelection = true}));
    EXPECT_EQ(ReadEditorArguments(u""), EditorRequest());
}

TEST(AutostartControl, KnowsItsOwnPathHoweverItIsWritten) {
    FakeAutostart value;
    MemoryLog log;
    AutostartControl control(value, u"C:\\App\\Vellumbridge.exe", log);
    EXPECT_FALSE(control.IsAutostart());
    const std::pair<std::u16string_view, bool> cases[] = {
        {u"c:\\app\\VELLUMBRIDGE.EXE /autoload", true},
        {u"\"C:\\App\\Vellumbridge.exe\"", true},
        {u"C:\\App\\Vellumbridge.exe /exit /more", true},
        {u"C:\\Other\\Vellumbridge.exe /autoload", false},
        {u"/autoload", false},
        {u"", false}};
    for (const auto& [text, is] : cases) {
        value.Value = text;
        EXPECT_EQ(control.IsAutostart(), is) << Utf16ToUtf8(text);
    }
    control.Invert();
    EXPECT_EQ(value.Value, u"C:\\App\\Vellumbridge.exe /autoload");
    // Switched off in the system's list, and on again by the user's own wish.
    value.SwitchedOff = true;
    EXPECT_FALSE(control.IsAutostart());
    control.Invert();
    EXPECT_TRUE(control.IsAutostart());
    control.Invert();
    EXPECT_EQ(value.Value, std::nullopt);
}

class CompanionsTest : public testing::Test, protected ShellFixture {
  protected:
    std::optional<SharedValues> Shared() { return ReadSharedSettings(Memory); }
};

TEST_F(CompanionsTest, TheEditorIsStartedInTheFirstWayThatWorksAndItsEndIsTold) {
    using enum EditorState;
    Editor.StartEditor({.Window = 60, .AddFromClipboard = true, .SelectedText = u"<chosen> & it"});
    EXPECT_THAT(Processes.Starts,
                ElementsAre(Pair(StartWay::Elevated, u" /addfromcb /addseltext")));
    EXPECT_THAT(EditorStates, ElementsAre(Pair(60U, Runs), Pair(60U, Closed)));
    EXPECT_EQ(Shared(), (SharedValues{13, 3, false, u"<chosen> & it"}));
    Processes.Starts.clear();
    EditorStates.clear();
    Processes.Refused = {StartWay::Elevated, StartWay::Direct};
    Commands.Run(kCmdEditPhrases);
    EXPECT_THAT(Processes.Starts,
                ElementsAre(Pair(StartWay::Elevated, u""), Pair(StartWay::Direct, u""),
                            Pair(StartWay::ByShell, u"")));
    EXPECT_THAT(EditorStates, ElementsAre(Pair(kTrayWindow, Runs), Pair(kTrayWindow, Closed)));
    EXPECT_TRUE(Told(u"Cannot start PhraseEditor as CreateProcess refused"));
    EXPECT_EQ(Shared()->SelectedText, u"");
}

TEST_F(CompanionsTest, ASelectionOfAnyLengthReachesTheEditorAndNoOlderOneDoes) {
    const std::u16string longText = std::u16string(3000, u'ж') + u"\r\n<&>";
    Editor.StartEditor({.SelectedText = longText});
    EXPECT_EQ(Shared()->SelectedText, longText);
    Editor.StartEditor({.SelectedText = u"short"});
    EXPECT_EQ(Shared()->SelectedText, u"short");
    Memory.Blocks.clear();
    EXPECT_EQ(Shared(), std::nullopt);
    Memory.Blocks[std::u16string(kAreaSettings)] = "no document";
    EXPECT_EQ(Shared(), std::nullopt);
}

TEST_F(CompanionsTest, AnEditorThatCannotBeStartedIsToldAndTriedOnceMore) {
    Processes.Refused = {StartWay::Elevated, StartWay::Direct, StartWay::ByShell};
    Editor.StartEditor({});
    EXPECT_THAT(EditorStates, ElementsAre(Pair(kTrayWindow, EditorState::Failed)));
    Requests.OnEditorState(EditorState::Failed);
    Requests.OnEditorState(EditorState::Failed);  // another program's
    ASSERT_EQ(View.Messages.size(), 2U);
    EXPECT_EQ(View.Messages[1], u"Cannot find file\n" + Locations.Editor());
    Access.Files.insert(Locations.Editor());
    Opener.Error = SystemError{5, u"denied"};
    Editor.StartEditor({});
    Requests.OnEditorState(EditorState::Failed);
    EXPECT_TRUE(View.Messages.back().ends_with(u"Params:  denied"));
    Opener.Error.reset();
    Editor.StartEditor({});
    Requests.OnEditorState(EditorState::Failed);
    EXPECT_EQ(View.Messages.size(), 5U);
    EXPECT_EQ(Opener.Started.back().Show, ShowState::Maximized);
}

TEST_F(CompanionsTest, AsAdministratorThisInstanceEndsOnlyWhenTheOtherComes) {
    Opener.Error = SystemError{1223, u"cancelled"};
    Commands.Run(kCmdRunAsAdministrator);
    EXPECT_FALSE(View.IsClosed);
    EXPECT_THAT(View.Messages, ElementsAre(u"Cannot start second instance of Vellumbridge"));
    EXPECT_FALSE(Objects.Exists(kEventTakeOver));
    Objects.Refused = {kEventTakeOver};
    Commands.Run(kCmdRunAsAdministrator);
    EXPECT_EQ(View.Messages.back(), u"Cannot create event for admin instance");
    Objects.Refused.clear();
    Opener.Error.reset();
    Commands.Run(kCmdRunAsAdministrator);
    EXPECT_TRUE(View.IsClosed);
    EXPECT_TRUE(Objects.Exists(kEventTakeOver));
    EXPECT_TRUE(Opener.Started.back().Elevated);
    EXPECT_EQ(Opener.Started.back().Arguments, u"/asadmin");
}

TEST_F(CompanionsTest, AFirstRunGreetsAndStartsWithWindowsUnlessItIsCarriedAbout) {
    Locations.Portable = true;
    Requests.BeginFirstRun(Locations);
    EXPECT_FALSE(View.Timers.contains(kTimerFirstRun));
    ASSERT_EQ(Opener.Started.size(), 1U);
    EXPECT_EQ(Opener.Started[0].Arguments, u"/auto");
    Locations.Portable = false;
    Settings.SetInt(u"Welcome_Already_Started_V2_60", 1);
    Requests.BeginFirstRun(Locations);
    EXPECT_EQ(Opener.Started.size(), 1U);
    EXPECT_EQ(Autostart.Value, std::nullopt);
    Expire(kTimerFirstRun);
    EXPECT_TRUE(AutostartSwitch.IsAutostart());
    CVBRSettings next(Profile, Settings.Files());
    EXPECT_FALSE(next.IsNewVersion());
    Commands.Run(kCmdWelcome);
    EXPECT_EQ(Opener.Started.back().Arguments, u"");
}

TEST_F(CompanionsTest, TipsTellWhatTheCommandsAreAbout) {
    const FakeLocale locale;
    TrayTips tips({.Settings = Settings,
                   .Locations = Locations,
                   .Service = Service,
                   .Commands = Commands,
                   .Clips = TrayClips,
                   .Messages = Messages,
                   .Clipboard = Clipboard,
                   .Ansi = Clips.Ansi,
                   .Items = Clips.Contents,
                   .Clock = Macros.Clock,
                   .Locale = locale,
                   .Texts = Macros.Texts,
                   .HistoryFolder = u"C:\\App\\ClipboardHistory",
                   .TrackingMethod = [] { return u"using SetClipboardViewer"; }});
    const auto textOf = [&tips](int id) {
        return tips.TipOf(static_cast<std::uint32_t>(id)).value_or(CommandTip()).Text;
    };
    Settings.SetLastCheckForUpdates({.Year = 2026, .Month = 3, .Day = 30});
    Settings.DaysCheckForUpdates = 3;
    Settings.AutoCheckForUpdates = true;
    Macros.Clock.Local = {.Year = 2026, .Month = 3, .Day = 31, .Hour = 12};
    Macros.Clock.Utc = {.Year = 2026, .Month = 3, .Day = 31, .Hour = 10};
    CopyText(u"first line\nsecond");
    const std::pair<int, std::u16string_view> parts[] = {
        {kCmdVisitForum, u" » "},
        {kCmdAbout, u"Log messages: 0"},
        {kCmdCheckForUpdates, u"Next Check: Wednesday, Another 2, 2026 2:0:0"},
        {kCmdStartWithWindows, u": 30 sec"},
        {kCmdEnableService, u"Hot key: Ctrl+Alt+Key13\nPhrases: [0/0]"},
        {kCmdSavePhraseFromClipboard, u"Content: [first line\r\n...]"},
        {kCmdKeepHistory, u"used: using SetClipboardViewer"},
        {kCmdZipInformation, u"\r\nlog.txt\r\n"},
        {kCmdWriteLog, u"\r\n » log.txt"},
        {kCmdSaveHistoryOnExit, u"ClipboardHistory"}};
    for (const auto& [id, part] : parts) {
        EXPECT_NE(textOf(id).find(part), std::u16string::npos) << id << Utf16ToUtf8(textOf(id));
    }
    EXPECT_EQ(textOf(kCmdSounds), u"");
    EXPECT_EQ(tips.TipOf(kCmdEditPhrases)->Title,
              u"Edit Phrases\\Settings - [" + VersionText() + u"]");
    Clips.AddClip(u"  " + std::u16string(200, u'x'));
    const auto clip = tips.TipOf(kCmdFirstTrayHistory);
    EXPECT_EQ(clip->Title, u"Clipboard History Item");
    EXPECT_THAT(Utf16ToUtf8(clip->Text), HasSubstr("Text Length: [202]"));
    EXPECT_TRUE(clip->Text.ends_with(u"\r\n\r\n" + std::u16string(150, u'x') + u"\r\n..."));
    EXPECT_EQ(tips.TipOf(kCmdLastTrayHistory), std::nullopt);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fakes/fake_autostart.h"
#include "fakes/fake_desktops.h"
#include "fakes/fake_file_access.h"
#include "fakes/fake_hotkeys.h"
#include "fakes/fake_shared_memory.h"
#include "fakes/held_event.h"
#include "fakes/menu_fixture.h"
#include "shell/tray_menu.h"
#include "shell/tray_messages.h"
#include "shell/tray_requests.h"

namespace vbr {

// Notes what the program shows, and keeps its timers for the test to let expire.
class FakeTrayView : public TrayView {
  public:
    bool TakesIcons = true;
    std::vector<TrayIconMode> Icons;
    std::vector<bool> Blinks;
    std::u16string Balloon;  // empty when none shows
    std::set<std::uintptr_t> Timers;
    std::vector<std::uint32_t> Pauses;  // of all timers
    std::vector<std::u16string> Messages;
    std::vector<TrayMenuPlace> Menus;
    bool IsClosed = false;
    bool AdmitsChoice = false;
    std::u16string Tip;

    bool ChangeIcon(TrayIconMode mode, const TrayIconContent& content) override {
        Icons.push_back(mode);
        Tip = content.Tip;
        return TakesIcons;
    }
    void DeleteIcon() override { Icons.clear(); }
    void ShowBlinkImage(bool second) override { Blinks.push_back(second); }
    bool ShowBalloon(std::u16string_view text, std::uint32_t) override {
        Balloon = text;
        return true;
    }
    bool StartTimer(std::uintptr_t id, std::uint32_t milliseconds) override {
        Timers.insert(id);
        Pauses.push_back(milliseconds);
        return true;
    }
    void AdmitChoice(bool on) override { AdmitsChoice = on; }
    void ShowMessage(std::u16string_view text, MessageIcon, bool) override {
        Messages.emplace_back(text);
    }
    void ShowTrayMenu(TrayMenuPlace place) override { Menus.push_back(place); }
    void PostCommand(int) override {}
    void Close() override { IsClosed = true; }
};

class FakeHistoryCapture : public HistoryCapture {
  public:
    bool Keeping = false;
    bool CanStart = true;
    int Starts = 0;
    bool TookContent = false;  // the last start
    int Saves = 0;
    int Changes = 0;

    bool IsKeeping() const override { return Keeping; }
    bool Start(bool withContent) override {
        ++Starts;
        TookContent = withContent;
        return Keeping = CanStart;
    }
    bool Stop() override {
        Keeping = false;
        return true;
    }
    SaveState State;

    void Save() override { ++Saves; }
    SaveState Saving() const override { return State; }
    void NotifyChanged() override { ++Changes; }
};

class FakeLogFile : public LogFile {
  public:
    std::u16string Running;
    bool CanStart = true;

    bool StartLog(const std::u16string& path) override {
        Running = CanStart ? path : u"";
        return CanStart;
    }
    void StopLog() override { Running.clear(); }
    std::u16string Path() const override { return Running; }
    std::uint16_t Atom() const override { return 0; }
};

class RecordingOpener : public ShellOpener {
  public:
    std::vector<std::u16string> Opened;
    std::vector<ShellStart> Started;
    std::optional<SystemError> Error;

    std::optional<SystemError> Open(WindowHandle, std::u16string_view target, ShowState) override {
        Opened.emplace_back(target);
        return Error;
    }
    std::optional<SystemError> Start(WindowHandle, const ShellStart& start) override {
        Started.push_back(start);
        return Error;
    }
};

// Starts processes that end at once, unless that way is refused.
class FakeProcessStarter : public ProcessStarter {
  public:
    std::set<StartWay> Refused;
    std::vector<std::pair<StartWay, std::u16string>> Starts;  // with the arguments

    ProcessStart Start(StartWay way, std::u16string_view, std::u16string_view arguments) override {
        Starts.emplace_back(way, arguments);
        if (Refused.contains(way)) {
            return {.Process = nullptr, .Error = {1223, u"refused"}};
        }
        return {.Process = std::make_unique<Ended>(), .Error = {}};
    }

  private:
    struct Ended : StartedProcess {
        bool WaitForEnd(NamedEvent&) override { return true; }
    };
};

// All of the program but its window: the target is window 50, on the local route.
struct ShellFixture : MenuFixture {
    static constexpr WindowHandle kTarget = 50;
    static constexpr WindowHandle kTrayWindow = 7;
    static constexpr std::u16string_view kModule = u"C:\\App\\Vellumbridge.exe";

    ShellFixture() {
        // The program looks for its phrases in a folder whose name ends in a backslash.
        std::filesystem::create_directory_symlink(Phrases.Folder.Path(),
                                                  Phrases.Folder.Path().string() + "\\");
        Settings.PhrasesDirectory = Phrases.Folder.Path().u16string();
        Settings.Load();
        Library.Target = kTarget;
        IsEnding = [this] { return Flow.IsStopped(); };
        Service.InstallService();
        Calls.clear();
    }
    ~ShellFixture() { std::filesystem::remove(Phrases.Folder.Path().string() + "\\"); }

    // A phrase in the program's folder, which is read anew.
    std::filesystem::path AddPhrase(const std::string& name, std::u16string_view text) {
        Phrases.Add(name + ".vellumbridge", text);
        Service.LoadPhrases();
        return Phrases.Folder.Path().string() + "\\/" + name + ".vellumbridge";
    }
    std::size_t PhraseCount() const { return Service.CountPhrases().Total; }
    // Whether the editor was started so.
    bool SeesStart(StartWay way, std::u16string_view arguments) {
        return std::ranges::find(Processes.Starts, std::pair(way, std::u16string(arguments))) !=
               Processes.Starts.end();
    }
    void CopyText(std::u16string_view text) {
        Clipboard.Copy({StandardBlock(kClipUnicodeText, TextBytes(text))});
    }
    void Expire(std::uintptr_t timer) {
        EXPECT_EQ(View.Timers.erase(timer), 1U) << timer;
        Requests.OnTimer(timer);
    }

    FakeSharedMemory Memory{&Calls};
    FakeHotkeys Hotkeys{Calls};
    FakeWaiter Waiter{Calls};
    FakeDesktops Desktops;
    FileLocations Locations{.LogFile = u"log.txt"};
    FakeFileAccess Access;
    FakeLogFile LogOfUser;
    FakeTrayView View;
    RecordingOpener Opener;
    MessageList Messages;
    FakeHistoryCapture Capture;
    int CapturesFirst = 0;
    TakenNames Taken{Macros.Log};
    HotkeyService Hotkey{{.Settings = Settings,
                          .Hooks = Hooks,
                          .Waiter = Waiter,
                          .Hotkeys = Hotkeys,
                          .Objects = Objects,
                          .Memory = Memory,
                          .Taken = Taken,
                          .Log = Macros.Log,
                          .Messages = Messages}};
    ServiceControl Service{{.Settings = Settings,
                            .Locations = Locations,
                            .Files = Access,
                            .Log = Macros.Log,
                            .LogOfUser = LogOfUser,
                            .Saver = Phrases.Saver,
                            .Tree = Phrases.Tree,
                            .Menu = Menu,
                            .Hotkey = Hotkey}};
    SettingsReader SettingsFile{
        {.Settings = Settings, .View = View, .Log = Macros.Log, .OnReadLate = [this] {
             Requests.OnSettingsReadLate();
         }}};
    TrayDisplay Display{{.View = View,
                         .State = [this] { return Service.State(false); },
                         .Settings = Settings,
                         .Texts = Macros.Texts,
                         .Sounds = Sounds,
                         .Log = Macros.Log}};
    HistoryControl History{{.Settings = Settings,
                            .Capture = Capture,
                            .Queue = Clips.Queue,
                            .View = View,
                            .Display = Display,
                            .Texts = Macros.Texts,
                            .Sounds = Sounds,
                            .Log = Macros.Log}};
    QueryFlow Flow{{.Settings = Settings,
                    .Texts = Macros.Texts,
                    .Clock = Macros.Clock,
                    .Desktops = Desktops,
                    .Windows = Windows,
                    .Clipboard = Clipboard,
                    .Selection = Reader,
                    .Snapshot = Snapshot,
                    .CaptureFirst = [this] { ++CapturesFirst; },
                    .Hotkey = Hotkey,
                    .Hooks = Hooks,
                    .Menu = Menu,
                    .History = Clips.History,
                    .Delivery = Delivery,
                    .RightMenu = RightMenu,
                    .View = View,
                    .Display = Display,
                    .Sounds = Sounds,
                    .Log = Macros.Log,
                    .RunCommand = [this](int command) { Commands.Run(command); },
                    .StartEditor =
                        [this](WindowHandle asker, std::u16string selection) {
                            Editor.StartEditor(
                                {.Window = asker, .SelectedText = std::move(selection)});
                        }}};
    FakeProcessStarter Processes;
    FakeAutostart Autostart;
    InstanceControl Instance{Objects, Autostart, Macros.Clock, Taken, Macros.Log};
    HeldEvent StopEvent;
    std::vector<std::pair<WindowHandle, EditorState>> EditorStates;
    Companions Editor{
        {.Settings = Settings,
         .Locations = Locations,
         .Files = Access,
         .Shared = Hotkey.Shared(),
         .Processes = Processes,
         .Opener = Opener,
         .Instance = Instance,
         .View = View,
         .Stop = StopEvent,
         .Window = kTrayWindow,
         .OnThread = [](const std::function<void()>& work) { work(); },
         .Tell = [this](WindowHandle window,
                        EditorState state) { EditorStates.emplace_back(window, state); },
         .Log = Macros.Log}};
    AutostartControl AutostartSwitch{Autostart, kModule, Macros.Log};
    TrayHistory TrayClips{{.Queue = Clips.Queue,
                           .Texts = Clips.Contents,
                           .Clipboard = Clipboard,
                           .Copy = [this](std::uint32_t id) {
                               CopiedClips.push_back(id);
                               return true;
                           }}};
    TrayCommands Commands{{.Settings = Settings,
                           .Locations = Locations,
                           .Reader = SettingsFile,
                           .Service = Service,
                           .History = History,
                           .Flow = Flow,
                           .View = View,
                           .Display = Display,
                           .Sounds = Sounds,
                           .Clipboard = Clipboard,
                           .Clips = TrayClips,
                           .Companions = Editor,
                           .Autostart = AutostartSwitch,
                           .Opener = Opener,
                           .Texts = Macros.Texts,
                           .Log = Macros.Log}};
    TrayMenu TheMenu{{.Commands = Commands,
                      .Service = Service,
                      .Clips = TrayClips,
                      .Settings = Settings,
                      .History = History,
                      .Texts = Macros.Texts}};
    TrayRequests Requests{{.Settings = Settings,
                           .Reader = SettingsFile,
                           .Profile = Profile,
                           .Texts = Macros.Texts,
                           .Clock = Macros.Clock,
                           .Service = Service,
                           .History = History,
                           .Flow = Flow,
                           .Commands = Commands,
                           .Companions = Editor,
                           .Autostart = AutostartSwitch,
                           .View = View,
                           .Display = Display,
                           .Sounds = Sounds,
                           .Input = Input,
                           .Log = Macros.Log}};
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/history.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// The tray menu and its commands, as a person or another program uses them.
class TrayMenuOnDesktop : public ProgramTest {
  protected:
    TrayMenuOnDesktop() { copier_.Copy({}); }
    ~TrayMenuOnDesktop() override {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge");
    }

    static void Command(int id) {
        SendMessageW(TrayWindow(), WM_COMMAND, static_cast<WPARAM>(id), 0);
    }
    static void OpenTrayMenu() {
        SetCursorPos(300, 200);
        PostMessageW(TrayWindow(), kMsgTrayNotify, 0, WM_RBUTTONUP);
        ASSERT_TRUE(WaitForMenu());
    }
    // The lines of the open menu by their numbers.
    static std::map<int, MenuLine> Lines() {
        std::map<int, MenuLine> byId;
        for (const MenuLine& line : ReadMenu(TopMenuWindow())) {
            byId[line.Id] = line;
        }
        return byId;
    }
    static std::map<int, MenuLine> ReadTrayMenu() {
        OpenTrayMenu();
        auto lines = Lines();
        CloseMenu();
        return lines;
    }
    // Opens the sub-menu of the clips in the open menu.
    static void OpenClips() {
        MenuLine popup;
        for (const MenuLine& line : ReadMenu(TopMenuWindow())) {
            if (line.Depth == 0 && line.Label.starts_with(u"Clipboard History [")) {
                popup = line;
            }
        }
        const HWND menu = TopMenuWindow();
        ClickMenuLine(popup, MouseButton::Left);
        ASSERT_TRUE(WaitUntil([menu] { return TopMenuWindow() != menu; }));
    }
    // Until the history has it.
    void Copy(const char16_t* text) {
        copier_.CopyText(text);
        ASSERT_TRUE(copier_.WaitUntil([&] {
            return NewestTexts(program_.Folder(), 1) == std::vector<std::u16string>{text};
        }));
    }
    static std::u16string ClipboardText() {
        const std::string bytes = ReadClipboard()[L"13"];
        return std::u16string(reinterpret_cast<const char16_t*>(bytes.data()),
                              bytes.size() / sizeof(char16_t))
            .c_str();
    }
    bool WaitForSetting(std::string_view line) const {
        return WaitUntil([&] {
            return FileBytes(program_.Folder() / L"Settings.ini").find(line) != std::string::npos;
        });
    }
    static std::u16string RunValue() {
        wchar_t text[512] = L"";
        DWORD size = sizeof text;
        RegGetValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", RRF_RT_REG_SZ, nullptr, text,
                     &size);
        return FromWide(text);
    }

    Copier copier_;
};

TEST_F(TrayMenuOnDesktop, TellsItsEntriesCountsAndStates) {
    StartWithPhrase("text",
                    "SoundOnEventsV094=0\nDelayAutoLoadSeconds_NextRelease=7\n"
                    "ClipboardHistoryMax=40\nShowHistoryPaneOnStart=1");
    OpenTrayMenu();
    const std::vector<MenuLine> all = ReadMenu(TopMenuWindow());
    std::vector<int> top;
    for (const MenuLine& line : all) {
        if (line.Depth == 0) {
            top.push_back(line.Id);
        }
    }
    EXPECT_EQ(
        top, (std::vector{kCmdExit, kCmdRunAsAdministrator, 0, kCmdAbout, kCmdCheckForUpdates, 0, 0,
                          0, kCmdWelcome, 0, kCmdStartWithWindows, kCmdEditPhrases, 0, 0,
                          kCmdSavePhraseFromClipboard, 0, kCmdTogglePane, kCmdEnableService}));
    auto lines = Lines();
    CloseMenu();
    EXPECT_EQ(lines[kCmdStartWithWindows].Label, u"Start With Windows (+7sec)");
    EXPECT_EQ(lines[kCmdRereadPhrases].Label, u"Reread Phrases [1/1]");
    EXPECT_TRUE(lines[kCmdEditPhrases].IsDefault());
    EXPECT_TRUE(std::ranges::any_of(all, [](const MenuLine& line) {
        return line.Label == u"Clipboard History [0/40]" && line.IsChecked();
    }));
    for (const int id : {kCmdEnableService, kCmdWriteLog, kCmdHistoryPaneOnStart, kCmdKeepHistory,
                         kCmdSaveHistoryOnExit, kCmdCheckForUpdates}) {
        EXPECT_TRUE(lines[id].IsChecked()) << id;
    }
    for (const int id : {kCmdSounds, kCmdStartWithWindows, kCmdMenuOnMouseEvent}) {
        EXPECT_FALSE(lines[id].IsChecked()) << id;
    }
    for (const int id : {kCmdSavePhraseFromClipboard, kCmdClearHistory, kCmdMenuOnMouseEvent,
                         kCmdAbout, kCmdCheckForUpdates, kCmdTogglePane}) {
        EXPECT_TRUE(lines[id].IsGrayed()) << id;
    }
}

TEST_F(TrayMenuOnDesktop, CommandsDoWhatTheirEntriesShow) {
    StartWithPhrase("text", "SoundOnEventsV094=0\nShowHistoryPaneOnStart=0");
    const std::pair<int, std::string> settings[] = {
        {kCmdSounds, "SoundOnEventsV094=1"},
        {kCmdHistoryPaneOnStart, "ShowHistoryPaneOnStart=1"},
        {kCmdSaveHistoryOnExit, "SaveClipboardHistory_v198=0"}};
    for (const auto& [id, line] : settings) {
        Command(id);
        EXPECT_TRUE(WaitForSetting(line)) << line;
    }
    program_.AddPhrase("Second", 2, "x");
    Command(kCmdRereadPhrases);
    // Who waits for it is told when the history is kept or not kept any more.
    const UniqueHandle changed = OpenSignal(kEventOptionsChanged);
    std::atomic<bool> told = false;
    std::thread waiting(
        [&] { told = WaitForSingleObject(changed.get(), kPatienceMs) == WAIT_OBJECT_0; });
    EXPECT_TRUE(WaitUntil([&] {
        Command(kCmdKeepHistory);
        const bool was = told;
        Command(kCmdKeepHistory);
        return was || told;
    }));
    waiting.join();
    Command(kCmdKeepHistory);
    Command(kCmdEnableService);
    EXPECT_FALSE(OpenSignal(kEventDataNeeded));
    auto lines = ReadTrayMenu();
    EXPECT_EQ(lines[kCmdRereadPhrases].Label, u"Reread Phrases [2/2]");
    EXPECT_FALSE(lines[kCmdKeepHistory].IsChecked());
    EXPECT_TRUE(lines[kCmdRekeepHistory].IsGrayed());
    EXPECT_FALSE(lines[kCmdEnableService].IsChecked());
    Command(kCmdWriteLog);
    EXPECT_TRUE(WaitForSetting("WriteLog=0"));
    EXPECT_FALSE(ReadTrayMenu()[kCmdWriteLog].IsChecked());
    // By a choice in the menu.
    OpenTrayMenu();
    ClickMenuLine(FindMenuLine(u"Enable Menu Of Phrases"), MouseButton::Right);
    EXPECT_TRUE(WaitUntil([] { return OpenSignal(kEventDataNeeded) != nullptr; }));
    Command(kCmdExit);
    EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
}

TEST_F(TrayMenuOnDesktop, ALogThatCannotBeStartedIsToldAndNotChecked) {
    std::filesystem::create_directory(program_.Folder() / L"LogReport.txt");
    StartWithPhrase("text");
    EXPECT_FALSE(ReadTrayMenu()[kCmdWriteLog].IsChecked());
    PostMessageW(TrayWindow(), WM_COMMAND, kCmdWriteLog, 0);
    HWND box = nullptr;
    EXPECT_TRUE(
        WaitUntil([&box] { return (box = FindWindowW(L"#32770", L"Vellumbridge")) != nullptr; }));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(WaitUntil([box] { return !IsWindow(box); }));
    EXPECT_FALSE(ReadTrayMenu()[kCmdWriteLog].IsChecked());
}

TEST_F(TrayMenuOnDesktop, AClipIsTheOneThatTheMenuShowedWhateverIsCopiedMeanwhile) {
    StartWithPhrase("text");
    for (const char16_t* text : {u"first", u"second & more", u"third"}) {
        Copy(text);
    }
    OpenTrayMenu();
    OpenClips();
    auto lines = Lines();
    EXPECT_EQ(lines[kCmdFirstTrayHistory].Label, u" third");
    EXPECT_TRUE(lines[kCmdFirstTrayHistory].IsDefault());
    EXPECT_EQ(lines[kCmdFirstTrayHistory + 1].Label, u" second && more");
    Copy(u"copied meanwhile");
    ClickMenuLine(lines[kCmdFirstTrayHistory + 1], MouseButton::Left);
    EXPECT_TRUE(copier_.WaitUntil([] { return ClipboardText() == u"second & more"; }));
}

TEST_F(TrayMenuOnDesktop, StartsWithWindowsOnAndOffWhateverElseStoodThere) {
    StartWithPhrase("text");
    const std::u16string path = (program_.Folder() / L"Vellumbridge.exe").u16string();
    Command(kCmdStartWithWindows);
    EXPECT_EQ(RunValue(), path + u" /autoload");
    EXPECT_TRUE(ReadTrayMenu()[kCmdStartWithWindows].IsChecked());
    Command(kCmdStartWithWindows);
    EXPECT_EQ(RunValue(), u"");
    const auto write = [](const std::u16string& value) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(char16_t)));
    };
    write(ToUpper(path) + u" /other");
    EXPECT_TRUE(ReadTrayMenu()[kCmdStartWithWindows].IsChecked());
    write(u"C:\\other.exe /autoload");
    EXPECT_FALSE(ReadTrayMenu()[kCmdStartWithWindows].IsChecked());
    Command(kCmdStartWithWindows);
    EXPECT_EQ(RunValue(), path + u" /autoload");
}

TEST_F(TrayMenuOnDesktop, PhrasesLieWhereAVariableOfTheEnvironmentSays) {
    SetEnvironmentVariableW(L"VBR_TEST_HOME", program_.Folder().c_str());
    const auto own = program_.Folder() / L"Own";
    std::filesystem::create_directory(own);
    std::filesystem::rename(program_.AddPhrase("Elsewhere", 1, "text"), own / L"e.vellumbridge");
    Start("PhrasesDirectory=%VBR_TEST_HOME%\\Own");
    EXPECT_EQ(ReadTrayMenu()[kCmdRereadPhrases].Label, u"Reread Phrases [1/1]");
    // A save keeps the variable.
    Command(kCmdSounds);
    EXPECT_TRUE(WaitForSetting("PhrasesDirectory=%VBR_TEST_HOME%\\Own"));
    EXPECT_TRUE(WaitForSetting("SoundOnEventsV094=0"));
}

TEST_F(TrayMenuOnDesktop, AsAdministratorAnotherInstanceTakesOver) {
    program_.RunAsStandardUser();
    StartWithPhrase("text");
    EXPECT_FALSE(ReadTrayMenu()[kCmdRunAsAdministrator].IsGrayed());
    const HWND before = TrayWindow();
    PostMessageW(before, WM_COMMAND, kCmdRunAsAdministrator, 0);
    EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
    ASSERT_TRUE(WaitUntil([before] { return TrayWindow() && TrayWindow() != before; }));
    ASSERT_TRUE(WaitUntilReady());
    EXPECT_TRUE(WaitForLog(u"cmdline [/asadmin]"));
    DWORD process = 0;
    GetWindowThreadProcessId(TrayWindow(), &process);
    const UniqueHandle other(OpenProcess(SYNCHRONIZE, FALSE, process));
    program_.Start(L"/exit").WaitForExit(kPatienceMs);
    EXPECT_EQ(WaitForSingleObject(other.get(), kPatienceMs), WAIT_OBJECT_0);
}

TEST_F(TrayMenuOnDesktop, ASecondStartShowsItsMenuInFront) {
    StartWithPhrase("text");
    const Notepad notepad;
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    EXPECT_EQ(program_.Start(L"/showmenu").WaitForExit(kPatienceMs), 1U);
    ASSERT_TRUE(WaitForMenu());
    EXPECT_TRUE(WaitUntil([] { return GetForegroundWindow() == TrayWindow(); }));
    PressKeys({VK_DOWN});
    EXPECT_TRUE(WaitUntil([] { return FindMenuLine(u"E&xit").IsSelected(); }));
    CloseMenu();
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == notepad.Window(); }));
}

}  // namespace
}  // namespace vbr::desktop

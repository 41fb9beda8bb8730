// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <vector>

#include "desktop/driver/history.h"
#include "desktop/program_test.h"
#include "menu/extra_commands.h"
#include "platform/object_names.h"
#include "resources/resource_ids.h"
#include "settings/shared_settings.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

// What other programs send to the running one, and find of it.
class TrayWindowTest : public ProgramTest {
  protected:
    // The history begins empty.
    TrayWindowTest() { Copier().Copy({}); }

    static LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        DWORD_PTR result = 0;
        EXPECT_TRUE(SendMessageTimeoutW(TrayWindow(), message, wParam, lParam, SMTO_NORMAL,
                                        kPatienceMs, &result));
        return static_cast<LRESULT>(result);
    }
    static LRESULT Send(std::u16string_view registered, WPARAM wParam = 0, LPARAM lParam = 0) {
        return Send(RegisterWindowMessageW(Wide(registered.data())), wParam, lParam);
    }
};

TEST_F(TrayWindowTest, MessagesOfAnyContentAreSurvivedAndTheExitSignalEndsTheProgram) {
    ASSERT_TRUE(program_.StartResident(L"/noinstall"));
    for (UINT message = WM_APP; message <= WM_APP + 40; ++message) {
        if (message != kMsgShowMenuRequest) {  // opens a menu that waits for the user
            Send(message, 1, 16);
        }
    }
    for (const std::u16string_view name :
         {kMessageTaskbarCreated, kMessageMouseEvent, kMessageAddMessage}) {
        Send(name, 0, 16);
    }
    Send(kMessageInstanceSignal, 5);
    EXPECT_TRUE(program_.Resident().IsRunning());
    Send(kMessageInstanceSignal, kSignalExit);
    EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
}

TEST_F(TrayWindowTest, ThePanesTitleIsWrittenIntoTheSendersBuffer) {
    ASSERT_TRUE(program_.StartResident());
    const UniqueHandle process(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, program_.Resident().Id()));
    void* buffer = VirtualAllocEx(process.get(), nullptr, 1024, MEM_COMMIT, PAGE_READWRITE);
    const LRESULT length = Send(kMsgGetPaneTitle, 0, reinterpret_cast<LPARAM>(buffer));
    char16_t title[100]{};
    ReadProcessMemory(process.get(), buffer, title, sizeof title, nullptr);
    EXPECT_EQ(std::u16string(title), u"Vellumbridge - Clipboard History [0]");
    EXPECT_EQ(length, 36);
}

TEST_F(TrayWindowTest, EachSignalOfOtherProgramsIsServedAndWatchedAgain) {
    StartWithPhrase("text", "ShowHistoryPaneOnStart=0");
    const std::pair<std::u16string_view, std::u16string_view> told[] = {
        {kEventEditorEnded, u"PhraseEditor closed"},
        {kEventLangUiChanged, u"CAppObjects::SetUseRuUrls"}};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(program_.Start(L"/showmenu").WaitForExit(kPatienceMs), 1U);
        ASSERT_TRUE(WaitForMenu());
        CloseMenu();
        // Whether the part behind it is there or not.
        const UniqueHandle check = OpenSignal(kEventCommandCheckForUpdates);
        ASSERT_TRUE(SetEvent(check.get()));
        EXPECT_TRUE(WaitUntil([&] { return WaitForSingleObject(check.get(), 0) != 0; }));
        for (const auto& [name, line] : told) {
            UniqueHandle event;
            ASSERT_TRUE(WaitUntil([&] { return (event = OpenSignal(name)) != nullptr; }));
            Send(WM_NULL);  // what came before is over
            const int before = CountInLog(line);
            ASSERT_TRUE(SetEvent(event.get()));
            EXPECT_TRUE(WaitUntil([&] { return CountInLog(line) == before + 1; }))
                << Utf16ToUtf8(line);
        }
    }
}

TEST_F(TrayWindowTest, ChoicesOfAnotherProcessAreCarriedOut) {
    const Notepad notepad;
    StartWithPhrase("sent");
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    Send(kMsgCommandFromSelf, 1);
    EXPECT_EQ(notepad.WaitForText(u"sent"), u"sent");
    Send(kMsgCommandFromSelf, static_cast<WPARAM>(kResultHistoryPane));
    EXPECT_TRUE(WaitForLog(Concat(u"Command ", kCmdTogglePane, u" is not available")));
}

TEST_F(TrayWindowTest, TheCommandForThePhraseMenuOpensItOverTheWindowInFront) {
    StartWithPhrase("chosen");
    const Notepad notepad;
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    Send(WM_COMMAND, kCmdShowPhraseMenu);
    ASSERT_TRUE(WaitForMenu());
    ChooseMenuItem(0);
    EXPECT_EQ(notepad.WaitForText(u"chosen"), u"chosen");
}

TEST_F(TrayWindowTest, TheServiceGivesUpAllWhenTurnedOffAndServesTheHotKeyWhenTurnedOn) {
    StartWithPhrase("text");
    const Notepad notepad;
    for (int i = 0; i < 3; ++i) {
        Send(WM_COMMAND, kCmdEnableService);
        EXPECT_FALSE(OpenSignal(kEventDataNeeded));
        EXPECT_TRUE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
        UnregisterHotKey(nullptr, 7);
        Send(WM_COMMAND, kCmdEnableService);
        EXPECT_TRUE(OpenSignal(kEventDataNeeded));
    }
    OpenMenu(notepad);
    CloseMenu();
}

TEST_F(TrayWindowTest, SettingsHeldAtTheStartAreKeptAndTakeEffectWhenTheyAreFree) {
    const auto file = program_.Folder() / L"Settings.ini";
    const int ctrlF9 = MOD_CONTROL << 16 | VK_F9;
    program_.WriteSettings("WriteLog=1\nHotkey=" + std::to_string(ctrlF9));
    const std::string before = FileBytes(file);
    UniqueHandle holder(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(IsValid(holder));
    ASSERT_TRUE(program_.StartResident());
    Send(WM_COMMAND, kCmdSaveHistoryOnExit);
    EXPECT_FALSE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
    holder.reset();
    EXPECT_EQ(FileBytes(file), before);
    EXPECT_TRUE(WaitForLog(u"Settings were read late"));
    EXPECT_TRUE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
    UnregisterHotKey(nullptr, 7);
    EXPECT_FALSE(RegisterHotKey(nullptr, 7, MOD_CONTROL, VK_F9));
}

TEST_F(TrayWindowTest, TheEditorIsToldTheHotKeyAndExitLeavesNoEventAreaOrFile) {
    program_.WriteSettings("Hotkey_Doubled=1");
    program_.AddPhrase("Only", 1, "x");
    ASSERT_TRUE(program_.StartResident());
    const auto openArea = [] {
        return UniqueHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, Wide(kAreaSettings.data())));
    };
    UniqueHandle area = openArea();
    const auto* text = static_cast<const char*>(MapViewOfFile(area.get(), FILE_MAP_READ, 0, 0, 0));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text, SharedSettingsText(VK_RETURN, 3, true, u""));
    UnmapViewOfFile(text);
    area.reset();
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(TrayWindow(), nullptr);
    EXPECT_FALSE(openArea());
    for (const std::u16string_view name :
         {kEventInstance, kEventEdit, kEventShowMenu, kEventAlreadyWork, kEventExit,
          kEventEditorEnded, kEventOptionsChanged, kEventLangUiChanged, kEventDataNeeded,
          kEventDataCompleted}) {
        EXPECT_FALSE(OpenSignal(name)) << Utf16ToUtf8(name);
    }
    std::vector<std::wstring> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(program_.Folder())) {
        files.push_back(entry.path().filename().wstring());
    }
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::wstring>{L"ClipboardHistory", L"Only.vellumbridge",
                                                L"Settings.ini", L"UserPhrases",
                                                L"Vellumbridge.dll", L"Vellumbridge.exe"}));
}

}  // namespace
}  // namespace vbr::desktop

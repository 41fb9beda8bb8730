// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "desktop/program_test.h"
#include "menu/extra_commands.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/shared_settings.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(TrayWindow(), message, wParam, lParam, SMTO_NORMAL, kPatienceMs, &result);
    return static_cast<LRESULT>(result);
}

// Memory of the program's process, as an outside sender of a message needs it.
class RemoteBuffer {
  public:
    explicit RemoteBuffer(DWORD process)
        : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, process)),
          address_(VirtualAllocEx(process_.get(), nullptr, kSize, MEM_COMMIT, PAGE_READWRITE)) {}

    LPARAM Address() const { return reinterpret_cast<LPARAM>(address_); }

    std::wstring Text() const {
        wchar_t text[kSize / sizeof(wchar_t)]{};
        ReadProcessMemory(process_.get(), address_, text, kSize, nullptr);
        return text;
    }

  private:
    static constexpr SIZE_T kSize = 1024;
    UniqueHandle process_;
    void* address_;
};

class TrayWindowTest : public ProgramTest {
  protected:
    std::wstring Setting(const wchar_t* section, const wchar_t* key) const {
        wchar_t value[512];
        GetPrivateProfileStringW(section, key, L"<missing>", value, 512,
                                 (program_.Folder() / L"Settings.ini").c_str());
        return value;
    }
};

TEST_F(TrayWindowTest, ACommandOfTheTrayMenuWritesTheSettings) {
    ASSERT_TRUE(program_.StartResident());
    for (const wchar_t* sounds : {L"0", L"1"}) {
        Send(WM_COMMAND, kCmdSounds);
        EXPECT_EQ(Setting(L"Settings", L"SoundOnEventsV094"), sounds);
    }
    EXPECT_EQ(Setting(L"A_SETTINGS", L"WRITED_TO"),
              (program_.Folder() / L"Settings.ini").wstring());
    EXPECT_EQ(Setting(L"A_SETTINGS", L"WRITED_WHO"), L"Vellumbridge.exe");
}

TEST_F(TrayWindowTest, SharedAreaTellsTheEditorTheHotKey) {
    Start("Hotkey_Doubled=1");
    const UniqueHandle area(OpenFileMappingW(FILE_MAP_READ, FALSE, Wide(kAreaSettings.data())));
    const auto* text = static_cast<const char*>(MapViewOfFile(area.get(), FILE_MAP_READ, 0, 0, 0));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text, SharedSettingsText(VK_RETURN, 3, true, u""));
    UnmapViewOfFile(text);
}

TEST_F(TrayWindowTest, PaneTitleIsGivenAndABadBufferIsSurvived) {
    ASSERT_TRUE(program_.StartResident());
    const RemoteBuffer buffer(program_.Resident().Id());
    const std::wstring title = L"Vellumbridge - Clipboard History [0]";
    EXPECT_EQ(Send(kMsgGetPaneTitle, 0, buffer.Address()), static_cast<LRESULT>(title.size()));
    EXPECT_EQ(buffer.Text(), title);
    EXPECT_EQ(Send(kMsgGetPaneTitle, 0, 16), static_cast<LRESULT>(title.size()));
    Send(RegisterWindowMessageW(Wide(kMessageAddMessage.data())), 0, 16);
    EXPECT_EQ(Send(kMsgGetPaneTitle), static_cast<LRESULT>(title.size()));
}

TEST_F(TrayWindowTest, EveryPrivateMessageOfAnOutsiderIsSurvived) {
    ASSERT_TRUE(program_.StartResident(L"/noinstall"));
    for (UINT message = WM_APP; message <= WM_APP + 40; ++message) {
        if (message != kMsgShowMenuRequest) {  // opens a menu that waits for the user
            Send(message, 1, 16);
        }
    }
    for (const std::u16string_view name : {kMessageTaskbarCreated, kMessageMouseEvent}) {
        Send(RegisterWindowMessageW(Wide(name.data())));
    }
    EXPECT_TRUE(program_.Resident().IsRunning());
    EXPECT_EQ(program_.End(), 0U);
}

// An extra command of the phrase menu, as another program sends it.
TEST_F(TrayWindowTest, ExtraCommandsOfTheMenuAreCarriedOutAsCommands) {
    Start("ShowHistoryPaneOnStart=0\nClipboardHistory=0");
    const std::pair<std::int32_t, std::u16string_view> cases[] = {
        {kResultEditPhrases, u"Command 32772 is not available"},
        {kResultHistoryPane, u"Command 32792 is not available"},
        {kResultSelectionIntoPhrase, u"Command 32826 is not available"}};
    for (const auto& [choice, line] : cases) {
        const int before = CountInLog(line);
        Send(kMsgCommandFromSelf, static_cast<WPARAM>(choice));
        EXPECT_TRUE(WaitUntil([&] { return CountInLog(line) == before + 1; })) << choice;
    }
    // A menu that was left without a choice asks for nothing.
    const int told = CountInLog(u" is not available");
    Send(kMsgCommandFromSelf, 0);
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(CountInLog(u" is not available"), told);
}

TEST_F(TrayWindowTest, InstanceSignalEndsTheProgram) {
    ASSERT_TRUE(program_.StartResident());
    const UINT signal = RegisterWindowMessageW(Wide(kMessageInstanceSignal.data()));
    Send(signal, 5);
    EXPECT_TRUE(program_.Resident().IsRunning());
    Send(signal, kSignalExit);
    EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
}

TEST_F(TrayWindowTest, WindowAnswersWhileSignalsRainDown) {
    ASSERT_TRUE(program_.StartResident());
    std::atomic<bool> done = false;
    std::thread signals([&] {
        for (int i = 0; i < 200; ++i) {
            const UniqueHandle event(
                OpenEventW(EVENT_MODIFY_STATE, FALSE, Wide(kEventAlreadyWork.data())));
            SetEvent(event.get());
            Sleep(5);
        }
        done = true;
    });
    int asked = 0;
    int answered = 0;
    while (!done) {
        DWORD_PTR ignored = 0;
        answered += SendMessageTimeoutW(TrayWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs,
                                        &ignored) != 0;
        ++asked;
        Sleep(10);
    }
    signals.join();
    EXPECT_GT(asked, 0);
    EXPECT_EQ(answered, asked);
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(TrayWindowTest, ChoiceOfAnotherProcessIsTyped) {
    program_.AddPhrase("Only", 1, "sent by data");
    const Notepad notepad;
    ASSERT_TRUE(program_.StartResident());
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    BYTE block[138]{};
    block[0] = 1;
    COPYDATASTRUCT data{0, sizeof block, block};
    Send(WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    EXPECT_EQ(notepad.WaitForText(u"sent by data"), u"sent by data");
}

TEST_F(TrayWindowTest, ExitLeavesNoEventAreaOrFile) {
    program_.AddPhrase("Only", 1, "x");
    ASSERT_TRUE(program_.StartResident());
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(TrayWindow(), nullptr);
    for (const std::u16string_view name :
         {kEventInstance, kEventEdit, kEventShowMenu, kEventAlreadyWork, kEventExit,
          kEventEditorEnded, kEventOptionsChanged, kEventLangUiChanged, kEventDataNeeded,
          kEventDataCompleted}) {
        EXPECT_EQ(OpenEventW(SYNCHRONIZE, FALSE, Wide(name.data())), nullptr)
            << std::string(name.begin(), name.end());
    }
    EXPECT_EQ(OpenFileMappingW(FILE_MAP_READ, FALSE, Wide(kAreaSettings.data())), nullptr);
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

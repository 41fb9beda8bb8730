// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <cstring>
#include <filesystem>
#include <set>
#include <tlhelp32.h>
#include <vector>

#include "desktop/driver/history.h"
#include "desktop/driver/taskbar.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"
#include "windows/access_list.h"
#include "windows/program_folder.h"

namespace vbr::desktop {
namespace {

// Another program of the session, which wants to be let in.
class Stranger : public ProgramTest {
  protected:
    Stranger() { Copier().Copy({}); }

    static const wchar_t* Name(std::u16string_view name) { return Wide(name.data()); }
    // Every window of the program's main thread.
    static std::vector<HWND> Windows() {
        std::vector<HWND> windows;
        const auto add = [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        };
        const auto list = reinterpret_cast<LPARAM>(&windows);
        add(TrayWindow(), list);
        EnumChildWindows(TrayWindow(), add, list);
        return windows;
    }
    static void SendChoice(std::int32_t number) {
        BYTE block[138]{};
        std::memcpy(block, &number, sizeof number);
        COPYDATASTRUCT data{0, sizeof block, block};
        DWORD_PTR result = 1;
        SendMessageTimeoutW(TrayWindow(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                            SMTO_NORMAL, kPatienceMs, &result);
        EXPECT_EQ(result, 0U);
    }
};

TEST_F(Stranger, ChoosesNothingWhileNobodyIsAsked) {
    const Notepad notepad;
    StartWithPhrase("sent");
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    for (const std::int32_t number : {1, 2000, 0, -1, -2, -3}) {
        SendChoice(number);
    }
    EXPECT_TRUE(
        WaitUntil([&] { return CountInLog(u"A choice comes that no query waits for") == 6; }));
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"sent"), u"sent");
}

TEST_F(Stranger, SendsAnyNumberWithAnyAddressToAnyWindowInVain) {
    StartWithPhrase("text", "ClipboardHistory=1");
    ASSERT_TRUE(WaitUntil([] { return Windows().size() >= 3; }));
    std::vector<UINT> messages;
    for (UINT message = WM_APP; message <= WM_APP + 40; ++message) {
        // Menus wait for the user, commands and timers have tests of their own.
        if (message != kMsgShowMenuRequest && message != kMsgTrayNotify) {
            messages.push_back(message);
        }
    }
    for (const std::u16string_view name :
         {kMessageAddMessage, kMessageClipboardNotice, kMessageHistoryLoaded, kMessageItemSaved,
          kMessageAddItem, kMessageItemStored, kMessageMenuTip, kMessageQuery}) {
        messages.push_back(RegisterWindowMessageW(Name(name)));
    }
    for (const HWND window : Windows()) {
        for (const UINT message : messages) {
            for (const LPARAM address :
                 {LPARAM{0}, LPARAM{16}, LPARAM{0x7FFF'0000'0000}, LPARAM{-1}}) {
                DWORD_PTR result = 0;
                EXPECT_TRUE(SendMessageTimeoutW(window, message, 0, address, SMTO_NORMAL,
                                                kPatienceMs, &result))
                    << message;
            }
        }
    }
    EXPECT_TRUE(program_.Resident().IsRunning());
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(Stranger, HoldsNamesAndTheProgramSaysSoAndDoesItsWork) {
    const Taskbar taskbar;
    const Notepad notepad;
    // Of another kind than the program's.
    std::vector<UniqueHandle> taken;
    for (const std::u16string_view name :
         {kEventEdit, kEventAlreadyWork, kEventDataNeeded, kEventLogGuard, kEventStartCopy,
          kEventOptionsChanged, kEventSaveLoadHistory}) {
        taken.emplace_back(CreateMutexW(nullptr, FALSE, Name(name)));
    }
    for (const std::u16string_view name : {kAreaSettings, kAreaInterchange}) {
        taken.emplace_back(CreateEventW(nullptr, TRUE, FALSE, Name(name)));
    }
    StartWithPhrase("works");
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"works"), u"works");
    for (const std::u16string_view name :
         {kEventEdit, kEventAlreadyWork, kEventDataNeeded, kEventLogGuard, kEventStartCopy,
          kEventOptionsChanged, kEventSaveLoadHistory, kAreaSettings, kAreaInterchange}) {
        EXPECT_EQ(CountInLog(Concat(u"Another program holds the name ", name)), 1)
            << Utf16ToUtf8(name);
    }
    const IconNotice told = taskbar.WaitFor([](const IconNotice& notice) {
        return notice.Balloon.find(u"Another program uses names") != notice.Balloon.npos;
    });
    EXPECT_TRUE(told.Window);
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(Stranger, PretendsToBeTheRunningInstanceAndItRunsAllTheSame) {
    const Notepad notepad;
    UniqueHandle pretended(CreateEventW(nullptr, TRUE, FALSE, Name(kEventInstance)));
    StartWithPhrase("works");
    EXPECT_EQ(CountInLog(Concat(u"Another program holds the name ", kEventInstance)), 1);
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"works"), u"works");
    // The next start finds it.
    EXPECT_EQ(program_.Start().WaitForExit(kPatienceMs), 1U);
    EXPECT_EQ(program_.End(), 0U);
}

// The names of the libraries in a process that come from the folder.
std::set<std::wstring> LibrariesFrom(const std::filesystem::path& folder, DWORD process) {
    std::set<std::wstring> names;
    const UniqueHandle modules(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(modules.get(), &module); more;
         more = Module32NextW(modules.get(), &module)) {
        if (std::filesystem::path(module.szExePath).parent_path() == folder) {
            names.insert(module.szModule);
        }
    }
    return names;
}

TEST_F(Stranger, PutsLibrariesBesideTheProgramInVain) {
    // Wine's own user32 would take a version.dll from beside any program.
    for (const char* name :
         {"winmm.dll", "riched20.dll", "wtsapi32.dll", "oleacc.dll", "uxtheme.dll", "dwmapi.dll"}) {
        std::filesystem::copy_file(ProgramFolder() / "vellumbridge_planted.dll",
                                   program_.Folder() / name);
    }
    const Notepad notepad;
    // With sounds, formatted text and the session's notices.
    program_.AddPhrase("Rich", 1, "{\\rtf1 rich}", "RTF");
    Start("SoundOnEventsV094=1\nTextPasteMethod_v150=1");
    Choose(notepad);
    EXPECT_NE(notepad.WaitForText(u"rich"), u"");
    EXPECT_EQ(LibrariesFrom(program_.Folder(), program_.Resident().Id()),
              (std::set<std::wstring>{L"Vellumbridge.dll", L"Vellumbridge.exe"}));
    EXPECT_EQ(program_.End(), 0U);
}

// What docs/security.md lists.
TEST_F(Stranger, FindsTheRightsOfEachObjectAndFileAsTold) {
    StartWithPhrase("text", "ClipboardHistory=1");
    Copier().Copy({{CF_UNICODETEXT, {"k\0e\0p\0t\0\0\0", 10}}});
    const auto history = program_.Folder() / "ClipboardHistory";
    ASSERT_TRUE(WaitUntil([&] {
        return std::filesystem::exists(history / "vellumbridge_cb1.info") ||
               (std::filesystem::exists(history) && !std::filesystem::is_empty(history));
    }));
    const std::pair<std::u16string_view, bool> events[] = {{kEventInstance, true},
                                                           {kEventEdit, true},
                                                           {kEventShowMenu, true},
                                                           {kEventAlreadyWork, true},
                                                           {kEventExit, true},
                                                           {kEventEditorEnded, true},
                                                           {kEventOptionsChanged, true},
                                                           {kEventLogGuard, true},
                                                           {kEventStartCopy, true},
                                                           {kEventEndCopy, true},
                                                           {kEventDataNeeded, false},
                                                           {kEventDataCompleted, false},
                                                           {kEventLangUiChanged, true},
                                                           {kEventFloatPaneBlink, true},
                                                           {kEventCheckForUpdates, true},
                                                           {kEventCommandCheckForUpdates, false},
                                                           {kEventSaveLoadHistory, false}};
    for (const auto& [name, isOpen] : events) {
        UniqueHandle event;
        EXPECT_TRUE(WaitUntil([&] {
            event.reset(OpenEventW(READ_CONTROL, FALSE, Name(name)));
            return event != nullptr;
        })) << Utf16ToUtf8(name);
        EXPECT_EQ(AccessListOf(event.get(), SE_KERNEL_OBJECT) == kOpenToEverybody, isOpen)
            << Utf16ToUtf8(name);
    }
    for (const std::u16string_view name : {kAreaSettings, kAreaInterchange}) {
        const UniqueHandle area(OpenFileMappingW(READ_CONTROL, FALSE, Name(name)));
        EXPECT_EQ(AccessListOf(area.get(), SE_KERNEL_OBJECT), kOpenToEverybody);
    }
    // A file that any program makes there.
    const auto plain = program_.Folder() / "plain";
    CloseHandle(CreateFileW(plain.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    const std::wstring rights = AccessListOf(plain);
    // A use is counted in the phrase's file.
    const Notepad notepad;
    Choose(notepad);
    EXPECT_EQ(program_.End(), 0U);
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(program_.Folder())) {
        const auto name = entry.path().filename();
        if (entry.is_regular_file() && name != "Vellumbridge.exe" && name != "Vellumbridge.dll") {
            EXPECT_EQ(AccessListOf(entry.path()), rights) << entry.path();
            ++files;
        }
    }
    EXPECT_GE(files, 6U);  // settings, log, phrase, a clip's two files
}

TEST_F(Stranger, FindsNoLogThatNobodyAskedFor) {
    program_.AddPhrase("Only phrase", 1, "text");
    program_.WriteSettings("SoundOnEventsV094=0");
    ASSERT_TRUE(program_.StartResident());
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_FALSE(std::filesystem::exists(program_.Folder() / "LogReport.txt"));
}

}  // namespace
}  // namespace vbr::desktop

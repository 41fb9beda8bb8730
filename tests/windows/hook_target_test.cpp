// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <dbghelp.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <tlhelp32.h>

#include "platform/win32/handle.h"
#include "windows/hook_desk.h"
#include "windows/target_thread.h"

namespace vbr {
namespace {

constexpr int kRounds = 200;

template <typename Condition>
bool WaitUntil(Condition holds) {
    for (int i = 0; i < 1000 && !holds(); ++i) {
        Sleep(20);
    }
    return holds();
}

bool BringToFront(HWND window) {
    return WaitUntil([window] {
        SetForegroundWindow(window);
        return GetForegroundWindow() == window;
    });
}

// Notepad as another program, with its edit control.
class Target {
  public:
    Target() {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        wchar_t command[] = L"notepad.exe";
        EXPECT_TRUE(CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &process));
        CloseHandle(process.hThread);
        process_.reset(process.hProcess);
        EXPECT_TRUE(WaitUntil([&] { return FindEdit(process.dwProcessId); }));
    }
    ~Target() {
        TerminateProcess(process_.get(), 0);
        WaitForSingleObject(process_.get(), INFINITE);
    }

    HWND Window() const { return window_; }
    HWND Edit() const { return edit_; }

    bool HasHookLibrary() const {
        const UniqueHandle modules(
            CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetProcessId(process_.get())));
        MODULEENTRY32W module{};
        module.dwSize = sizeof module;
        bool any = false;
        for (BOOL more = Module32FirstW(modules.get(), &module); more;
             more = Module32NextW(modules.get(), &module)) {
            any = true;
            if (std::wstring(module.szModule) == L"Vellumbridge.dll") {
                return true;
            }
        }
        EXPECT_TRUE(any);
        return false;
    }

  private:
    bool FindEdit(DWORD process) {
        HWND window = nullptr;
        while (!edit_ && (window = FindWindowExW(nullptr, window, L"Notepad", nullptr))) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == process && IsWindowVisible(window)) {
                window_ = window;
                edit_ = FindWindowExW(window, nullptr, L"Edit", nullptr);
            }
        }
        return edit_ != nullptr;
    }

    UniqueHandle process_;
    HWND window_ = nullptr;
    HWND edit_ = nullptr;
};

TEST(HookTargetTest, NothingStaysInATargetHoweverOftenTheLibraryWasThere) {
    const Target target;
    for (int round = 0; round < kRounds; ++round) {
        HookDesk desk;
        ASSERT_TRUE(desk.Install(QueryRoadChoice::Posted)) << round;
        ASSERT_TRUE(desk.Ask(target.Edit())) << round;
        ASSERT_TRUE(desk.Uninstall()) << round;
        ASSERT_TRUE(WaitUntil([&] { return !target.HasHookLibrary(); })) << round;
    }
}

TEST(HookTargetTest, AHundredQueriesInARowAreAnsweredInFull) {
    const Target target;
    HookDesk desk;
    ASSERT_TRUE(desk.Install(QueryRoadChoice::Posted));
    for (int i = 0; i < 100; ++i) {
        const std::wstring text = L"text " + std::to_wstring(i);
        SendMessageW(target.Edit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(target.Edit(), EM_SETSEL, 0, -1);
        const auto query = desk.Ask(target.Edit());
        ASSERT_TRUE(query) << i;
        EXPECT_EQ(query->SelText, FromWide(text.c_str()));
    }
    EXPECT_TRUE(target.HasHookLibrary());
}

TEST(HookTargetTest, OnTheLocalRoadNothingEntersOtherPrograms) {
    const Target target;
    for (const QueryRoadChoice road : {QueryRoadChoice::Local, QueryRoadChoice::OfSystem}) {
        HookDesk desk;
        ASSERT_TRUE(desk.Install(road));
        ASSERT_TRUE(BringToFront(target.Window()));
        // Behind the query in the target's queue.
        ASSERT_TRUE(desk.Post(target.Edit()));
        SendMessageW(target.Edit(), WM_NULL, 0, 0);
        EXPECT_FALSE(desk.WaitForAnswer(0));
        EXPECT_FALSE(target.HasHookLibrary());
    }
}

// A message loop for the notices about the foreground.
void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

TEST(HookTargetTest, TheTargetIsTheFocusInFrontAndTheOtherIsTheLastProgramInFront) {
    HookDesk desk;
    ASSERT_TRUE(desk.Install(QueryRoadChoice::Local));
    const auto number = [](HWND window) { return reinterpret_cast<WindowHandle>(window); };
    HookModule& library = desk.Library();
    const TargetThread own(L"Edit", 0);
    {
        const Target first;
        {
            const Target second;
            ASSERT_TRUE(BringToFront(first.Window()));
            EXPECT_TRUE(
                WaitUntil([&] { return library.GetTargetWindow() == number(first.Edit()); }));
            EXPECT_EQ(library.GetTargetWindowOther(), number(first.Window()));
            ASSERT_TRUE(BringToFront(second.Window()));
            Pump();
            ASSERT_TRUE(BringToFront(own.Window()));
            EXPECT_EQ(library.GetTargetWindow(), 0U);
            EXPECT_TRUE(WaitUntil([&] {
                Pump();
                return library.GetTargetWindowOther() == number(second.Window());
            }));
        }
        // The last one is gone; its number is good for nothing.
        EXPECT_NE(library.GetTargetWindowOther(), number(GetForegroundWindow()));
    }
}

TEST(HookTargetTest, TheFocusCanBeGivenBackToTheOtherWindow) {
    HookDesk desk;
    ASSERT_TRUE(desk.Install(QueryRoadChoice::Local));
    const Target target;
    ASSERT_TRUE(BringToFront(target.Window()));
    const TargetThread own(L"Edit", 0);
    ASSERT_TRUE(BringToFront(own.Window()));
    Pump();
    const HWND other = reinterpret_cast<HWND>(desk.Library().GetTargetWindowOther());
    const DWORD thread = GetWindowThreadProcessId(other, nullptr);
    ASSERT_TRUE(AttachThreadInput(GetCurrentThreadId(), thread, TRUE));
    SetActiveWindow(other);
    SetForegroundWindow(other);
    SetFocus(other);
    AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == target.Window(); }));
}

TEST(HookTargetTest, TheLibraryNeedsNothingButTheSystem) {
    const std::wstring path = (ProgramFolder() / "Vellumbridge.dll").wstring();
    const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_TRUE(module);
    ULONG size = 0;
    const auto* entry = static_cast<const IMAGE_IMPORT_DESCRIPTOR*>(
        ImageDirectoryEntryToData(module, TRUE, IMAGE_DIRECTORY_ENTRY_IMPORT, &size));
    std::set<std::string> imports;
    for (; entry && entry->Name; ++entry) {
        imports.insert(reinterpret_cast<const char*>(module) + entry->Name);
    }
    FreeLibrary(module);
    EXPECT_EQ(imports, (std::set<std::string>{"KERNEL32.dll", "USER32.dll"}));
}

}  // namespace
}  // namespace vbr

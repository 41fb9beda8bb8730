// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <string>
#include <tlhelp32.h>
#include <vector>

#include "desktop/driver/notepad.h"
#include "desktop/driver/waiting.h"
#include "platform/win32/handle.h"
#include "windows/hook_fixture.h"
#include "windows/pump.h"
#include "windows/target_thread.h"

namespace vbr {
namespace {

constexpr int kRounds = 100;

using desktop::Notepad;
using desktop::WaitUntil;

bool BringToFront(HWND window) {
    return WaitUntil([window] {
        SetForegroundWindow(window);
        return GetForegroundWindow() == window;
    });
}

bool HasHookLibrary(const Notepad& target) {
    DWORD process = 0;
    GetWindowThreadProcessId(target.Window(), &process);
    const UniqueHandle modules(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
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

// Grows with each handle that is forgotten: the number of one behind all gaps. Wine counts none.
std::uintptr_t LastHandle() {
    std::vector<UniqueHandle> handles;
    for (int i = 0; i < 200; ++i) {
        handles.emplace_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    }
    return reinterpret_cast<std::uintptr_t>(handles.back().get());
}

TEST(HookTargetTest, NothingStaysInATargetHoweverOftenTheLibraryWasThere) {
    const Notepad target;
    std::uintptr_t last = 0;
    for (int round = 0; round < kRounds; ++round) {
        HookFixture fixture;
        ASSERT_TRUE(fixture.Install(QueryRouteChoice::Posted)) << round;
        ASSERT_TRUE(fixture.Ask(target.Edit())) << round;
        ASSERT_TRUE(fixture.Uninstall()) << round;
        ASSERT_TRUE(WaitUntil([&] { return !HasHookLibrary(target); })) << round;
        last = round < 5 ? LastHandle() : last;
    }
    EXPECT_LT(LastHandle(), last + kRounds);  // a handle takes four numbers
}

TEST(HookTargetTest, OnTheLocalRouteNothingEntersOtherPrograms) {
    const Notepad target;
    for (const QueryRouteChoice route : {QueryRouteChoice::Local, QueryRouteChoice::OfSystem}) {
        HookFixture fixture;
        ASSERT_TRUE(fixture.Install(route));
        ASSERT_TRUE(BringToFront(target.Window()));
        // Behind the query in the target's queue.
        ASSERT_TRUE(fixture.Post(target.Edit()));
        SendMessageW(target.Edit(), WM_NULL, 0, 0);
        EXPECT_FALSE(fixture.WaitForAnswer(0));
        EXPECT_FALSE(HasHookLibrary(target));
    }
}

TEST(HookTargetTest, TheTargetIsTheFocusInFrontAndTheOtherIsTheLastProgramInFront) {
    HookFixture fixture;
    ASSERT_TRUE(fixture.Install(QueryRouteChoice::Local));
    const auto number = [](HWND window) { return reinterpret_cast<WindowHandle>(window); };
    HookModule& library = fixture.Library();
    const TargetThread own(L"Edit", 0);
    {
        const Notepad first;
        {
            const Notepad second;
            ASSERT_TRUE(BringToFront(first.Window()));
            EXPECT_TRUE(
                WaitUntil([&] { return library.GetTargetWindow() == number(first.Edit()); }));
            EXPECT_EQ(library.GetTargetWindowOther(), number(first.Window()));
            ASSERT_TRUE(BringToFront(second.Window()));
            Pump();  // hears of the foreground
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

TEST(HookTargetTest, TheLibraryIsInstalledOnceAtATimeAndWithAllNames) {
    HookModule library((ProgramFolder() / "Vellumbridge.dll").u16string());
    ASSERT_TRUE(library.Load());
    for (const std::uint32_t code : {kHookBadNames, kHookSuccess, kHookAlreadyInstalled}) {
        WPInstallParams params = HookFixture::Params(QueryRouteChoice::OfSystem);
        if (code == kHookBadNames) {
            params.DataCompletedName = u"";
        }
        EXPECT_EQ(library.Install(params), code == kHookSuccess);
        EXPECT_EQ(params.ErrorCode, code);
    }
    EXPECT_EQ(library.Uninstall(), true);
}

TEST(HookTargetTest, AMissingOrForeignLibraryInstallsNothing) {
    HookModule missing(u"C:\\no such folder\\Vellumbridge.dll");
    HookModule foreign(u"version.dll");
    EXPECT_FALSE(missing.Load());
    EXPECT_TRUE(foreign.Load());
    for (HookModule* library : {&missing, &foreign}) {
        WPInstallParams params = HookFixture::Params(QueryRouteChoice::OfSystem);
        EXPECT_EQ(library->Install(params), std::nullopt);
        EXPECT_EQ(library->Uninstall(), std::nullopt);
        EXPECT_EQ(library->GetTargetWindow(), 0u);
    }
}

TEST(HookTargetTest, TheShippedLibraryKnowsTheWindowInFrontAndEntersNobody) {
    HookModule library((ProgramFolder() / "Vellumbridge.dll").u16string());
    ASSERT_TRUE(library.Load());
    WPInstallParams posted = HookFixture::Params(QueryRouteChoice::Posted);
    EXPECT_EQ(library.Install(posted), false);
    EXPECT_EQ(posted.ErrorCode, kHookNotHooked);
    WPInstallParams local = HookFixture::Params(QueryRouteChoice::OfSystem);
    EXPECT_EQ(library.Install(local), true);
    const Notepad target;
    ASSERT_TRUE(BringToFront(target.Window()));
    EXPECT_TRUE(WaitUntil([&] {
        return library.GetTargetWindow() == reinterpret_cast<WindowHandle>(target.Edit());
    }));
    EXPECT_EQ(library.GetTargetWindowOther(), reinterpret_cast<WindowHandle>(target.Window()));
    EXPECT_FALSE(HasHookLibrary(target));
    EXPECT_EQ(library.Uninstall(), true);
}

}  // namespace
}  // namespace vbr

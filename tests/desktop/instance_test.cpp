// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

constexpr DWORD kNotEndedMs = 1500;

bool EventExists(std::u16string_view name) {
    return UniqueHandle(OpenEventW(SYNCHRONIZE, FALSE, Wide(name.data()))) != nullptr;
}

std::optional<DWORD> ExitCode(const Process& process) {
    return process.WaitForExit(kPatienceMs);
}

// Finds a message box and answers it.
bool CloseMessageBox(DWORD process) {
    return WaitUntil([process] {
        const HWND box = FindWindowW(L"#32770", L"Vellumbridge");
        DWORD owner = 0;
        GetWindowThreadProcessId(box, &owner);
        return box && owner == process && IsWindowVisible(box) &&
               PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
}

class Instance : public ProgramTest {};

TEST_F(Instance, SecondStartEndsWith1AndTheFirstGoesOn) {
    ASSERT_TRUE(program_.StartResident());
    EXPECT_EQ(ExitCode(program_.Start()), 1U);
    EXPECT_TRUE(program_.Resident().IsRunning());
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_FALSE(EventExists(kEventInstance));
    EXPECT_FALSE(EventExists(kEventAlreadyWork));
}

TEST_F(Instance, ExitWithNothingRunningEndsWith1AndStartsNothing) {
    EXPECT_EQ(ExitCode(program_.Start(L"/exit")), 1U);
    EXPECT_FALSE(EventExists(kEventInstance));
}

TEST_F(Instance, HelpShowsTheKeysAndEndsWith0) {
    const Process help = program_.Start(L"/?");
    EXPECT_TRUE(CloseMessageBox(help.Id()));
    EXPECT_EQ(ExitCode(help), 0U);
    EXPECT_FALSE(EventExists(kEventInstance));
}

TEST_F(Instance, PlainStartReleasesTheAutostartDelayAndEndsWith12) {
    program_.WriteSettings("DelayAutoLoadSeconds_NextRelease=600");
    const Process delayed = program_.Start(L"/autoload");
    ASSERT_TRUE(WaitUntil([] { return EventExists(kEventAutoLoadWait); }));
    EXPECT_FALSE(EventExists(kEventInstance));
    EXPECT_EQ(ExitCode(program_.Start()), 12U);
    EXPECT_TRUE(WaitUntilReady());
    EXPECT_FALSE(EventExists(kEventAutoLoadWait));
    EXPECT_EQ(ExitCode(program_.Start(L"/exit")), 1U);
    EXPECT_EQ(ExitCode(delayed), 0U);
}

TEST_F(Instance, UaDeletesTheAutostartValueAloneAndEndsTheRunningInstance) {
    const wchar_t* run = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    for (const wchar_t* name : {L"Vellumbridge", L"Other"}) {
        RegSetKeyValueW(HKEY_CURRENT_USER, run, name, REG_SZ, L"x", 2 * sizeof(wchar_t));
    }
    ASSERT_TRUE(program_.StartResident());
    EXPECT_EQ(ExitCode(program_.Start(L"/ua")), 1U);
    EXPECT_EQ(ExitCode(program_.Resident()), 0U);
    EXPECT_EQ(RegDeleteKeyValueW(HKEY_CURRENT_USER, run, L"Vellumbridge"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyValueW(HKEY_CURRENT_USER, run, L"Other"), ERROR_SUCCESS);
}

TEST_F(Instance, ShowMenuOpensTheMenuOfTheRunningInstance) {
    ASSERT_TRUE(program_.StartResident(L"/noinstall"));
    EXPECT_EQ(ExitCode(program_.Start(L"/showmenu")), 1U);
    EXPECT_TRUE(WaitForMenu());
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(Instance, TakeOverWaitsUntilTheFirstInstanceHasEnded) {
    ASSERT_TRUE(program_.StartResident());
    const UniqueHandle ended(CreateEventW(nullptr, TRUE, FALSE, Wide(kEventTakeOver.data())));
    const Process elevated = program_.Start(L"/asadmin");
    EXPECT_EQ(ExitCode(program_.Resident()), 0U);
    EXPECT_FALSE(elevated.WaitForExit(kNotEndedMs));
    EXPECT_FALSE(EventExists(kEventInstance));
    SetEvent(ended.get());
    EXPECT_TRUE(WaitUntilReady());
    EXPECT_EQ(ExitCode(program_.Start(L"/exit")), 1U);
    EXPECT_EQ(ExitCode(elevated), 0U);
}

}  // namespace
}  // namespace vbr::desktop

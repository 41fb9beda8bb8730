// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/program_test.h"
#include "platform/object_names.h"

namespace vbr::desktop {
namespace {

class Instance : public ProgramTest {
  protected:
    static std::optional<DWORD> ExitCode(const Process& process) {
        return process.WaitForExit(kPatienceMs);
    }
};

TEST_F(Instance, HelpIsShownInABoxAndEndsWith0) {
    const Process help = program_.Start(L"/?");
    EXPECT_TRUE(WaitUntil([&help] {
        const HWND box = FindWindowW(L"#32770", L"Vellumbridge");
        DWORD owner = 0;
        GetWindowThreadProcessId(box, &owner);
        return owner == help.Id() && IsWindowVisible(box) && PostMessageW(box, WM_COMMAND, IDOK, 0);
    }));
    EXPECT_EQ(ExitCode(help), 0U);
    EXPECT_FALSE(OpenSignal(kEventInstance));
}

TEST_F(Instance, PlainStartReleasesTheAutostartDelayAndEndsWith12) {
    program_.WriteSettings("DelayAutoLoadSeconds_NextRelease=600");
    const Process delayed = program_.Start(L"/autoload");
    ASSERT_TRUE(WaitUntil([] { return OpenSignal(kEventAutoLoadWait) != nullptr; }));
    EXPECT_FALSE(OpenSignal(kEventInstance));
    EXPECT_EQ(ExitCode(program_.Start()), 12U);
    EXPECT_TRUE(WaitUntilReady());
    EXPECT_EQ(ExitCode(program_.Start(L"/exit")), 1U);
    EXPECT_EQ(ExitCode(delayed), 0U);
}

TEST_F(Instance, UaDeletesTheAutostartValueAlone) {
    const wchar_t* run = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    for (const wchar_t* name : {L"Vellumbridge", L"Other"}) {
        RegSetKeyValueW(HKEY_CURRENT_USER, run, name, REG_SZ, L"x", 2 * sizeof(wchar_t));
    }
    EXPECT_EQ(ExitCode(program_.Start(L"/ua")), 1U);
    EXPECT_EQ(RegDeleteKeyValueW(HKEY_CURRENT_USER, run, L"Vellumbridge"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyValueW(HKEY_CURRENT_USER, run, L"Other"), ERROR_SUCCESS);
}

}  // namespace
}  // namespace vbr::desktop

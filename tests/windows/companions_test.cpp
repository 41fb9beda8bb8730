// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/win32/handle.h"
#include "platform/win32/win_autostart.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_process_starter.h"

namespace vbr {
namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kListKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";

TEST(WinAutostart, ReadsAnyTextAndKnowsWhenTheSystemIgnoresIt) {
    WinAutostart value;
    EXPECT_EQ(value.Read(), std::nullopt);
    const std::u16string longText(2000, u'x');
    for (const std::u16string& text : {std::u16string(u"C:\\a b.exe /autoload"), longText}) {
        EXPECT_TRUE(value.Write(text));
        EXPECT_EQ(value.Read(), text);
    }
    SetEnvironmentVariableW(L"VBR_TEST_PLACE", L"D:\\Here");
    const wchar_t withVariable[] = L"%VBR_TEST_PLACE%\\a.exe";
    RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", REG_EXPAND_SZ, withVariable,
                    sizeof withVariable);
    EXPECT_EQ(value.Read(), u"D:\\Here\\a.exe");
    // Not ended by a zero.
    RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", REG_SZ, L"abc", 6);
    EXPECT_EQ(value.Read(), u"abc");
    const DWORD number = 7;
    RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(value.Read(), std::nullopt);
    value.Write(u"text");
    const BYTE off[12] = {3};
    RegSetKeyValueW(HKEY_CURRENT_USER, kListKey, L"Vellumbridge", REG_BINARY, off, sizeof off);
    EXPECT_EQ(value.Read(), std::nullopt);
    value.Allow();
    EXPECT_EQ(value.Read(), u"text");
    value.Delete();
    value.Delete();
    EXPECT_EQ(value.Read(), std::nullopt);
}

TEST(WinProcessStarter, StartsInEachWayAndTellsOfTheEndOrTheStop) {
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    const std::u16string program = std::filesystem::path(folder).u16string() + u"\\cmd.exe";
    WinProcessStarter starter;
    WinNamedEvent stop(UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
    for (const StartWay way : {StartWay::Direct, StartWay::ByShell, StartWay::Elevated}) {
        const ProcessStart started = starter.Start(way, program, u" /c exit");
        ASSERT_TRUE(started.Process) << static_cast<int>(way);
        EXPECT_TRUE(started.Process->WaitForEnd(stop));
        const ProcessStart missing = starter.Start(way, u"C:\\no such file.exe", u"");
        EXPECT_FALSE(missing.Process);
        EXPECT_NE(missing.Error.Code, 0U);
        EXPECT_FALSE(missing.Error.Text.empty());
    }
    const ProcessStart waits = starter.Start(StartWay::Direct, program, u" /c pause <con");
    stop.Set();
    ASSERT_TRUE(waits.Process);
    EXPECT_FALSE(waits.Process->WaitForEnd(stop));
}

}  // namespace
}  // namespace vbr

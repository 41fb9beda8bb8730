// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_shell_opener.h"
#include "platform/win32/win_target_windows.h"
#include "windows/message_window.h"
#include "windows/pump.h"

namespace vbr {
namespace {

TEST(WinTargetWindows, TellWhatLivesAndWhose) {
    WinTargetWindows windows;
    MessageWindow window;
    const WindowHandle own = window.Number();
    EXPECT_TRUE(windows.IsWindow(own));
    EXPECT_TRUE(windows.IsOwnProcess(own));
    EXPECT_FALSE(windows.IsOwnProcess(reinterpret_cast<WindowHandle>(GetDesktopWindow())));
    EXPECT_FALSE(windows.RunsElevated(own));
    windows.Wake(own);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, window.Get(), WM_NULL, WM_NULL, PM_REMOVE));
    window.Destroy();
    EXPECT_FALSE(windows.IsWindow(own));
    EXPECT_FALSE(windows.RunsElevated(own));
    EXPECT_FALSE(windows.IsWindow(0));
}

TEST(WinShellOpener, OpensAFileAndTellsOfAMissingOne) {
    TempFolder folder;
    folder.Write(u"привет a.cmd", "@>\"%~dp0seen.txt\" echo seen %*\r\n");
    const std::u16string path = (folder.Path() / u"привет a.cmd").u16string();
    EXPECT_GT(WinShellOpener().Open(0, path, ShowState::Normal), 32);
    EXPECT_TRUE(PumpUntil([&] { return folder.Read("seen.txt") == "seen \r\n"; }));
    EXPECT_LE(WinShellOpener().Open(0, path + u".txt", ShowState::Normal), 32);
    EXPECT_TRUE(WinProgramStarter().IsFile(path));
    EXPECT_FALSE(WinProgramStarter().IsFile(folder.Path().u16string()));
    EXPECT_TRUE(WinProgramStarter().IsFolder(folder.Path().u16string()));
}

TEST(WinKeyboardLayouts, ReadTheShortcutOfTheSystem) {
    const wchar_t* const key = L"Keyboard Layout\\Toggle";
    const WinKeyboardLayouts layouts;
    RegDeleteKeyW(HKEY_CURRENT_USER, key);
    EXPECT_FALSE(layouts.ToggleSetting().Readable);
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, key, &made), ERROR_SUCCESS);
    EXPECT_TRUE(layouts.ToggleSetting().Readable);
    EXPECT_EQ(layouts.ToggleSetting().Hotkey, std::nullopt);
    const struct {
        std::wstring Value;
        std::optional<std::u16string> Read;
    } cases[] = {{L"2", u"2"}, {L"", u""}, {L"123456789", u"123456789"}, {L"1234567890", {}}};
    for (const auto& c : cases) {
        RegSetValueExW(made, L"Hotkey", 0, REG_SZ, reinterpret_cast<const BYTE*>(c.Value.c_str()),
                       static_cast<DWORD>((c.Value.size() + 1) * sizeof(wchar_t)));
        EXPECT_EQ(layouts.ToggleSetting().Hotkey, c.Read);
        EXPECT_EQ(layouts.ToggleSetting().Readable, c.Read.has_value());
    }
    RegCloseKey(made);
    RegDeleteKeyW(HKEY_CURRENT_USER, key);
}

TEST(WinKeyboardLayouts, TheDefaultLanguageAndThatOfThisThreadAreInstalled) {
    const WinKeyboardLayouts layouts;
    const std::vector<Lcid> installed = layouts.InstalledLanguages();
    EXPECT_THAT(installed, testing::Contains(layouts.DefaultInputLanguage()));
    EXPECT_THAT(installed, testing::Contains(LanguageOf(WinDesktopWindows().KeyboardLayout(0))));
}

}  // namespace
}  // namespace vbr

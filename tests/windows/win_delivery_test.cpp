// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "macros/layout_switcher.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_shell_opener.h"
#include "platform/win32/win_target_windows.h"
#include "windows/message_window.h"

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

// A batch file that writes what it hears.
class StartedFile : public testing::Test {
  protected:
    StartedFile() { folder_.Write(u"привет a.cmd", "@>\"%~dp0seen.txt\" echo seen %*\r\n"); }

    std::string WaitForWords() const {
        std::string seen;
        for (int i = 0; i < 500 && !seen.ends_with("\n"); ++i) {
            Sleep(20);
            seen = folder_.Read("seen.txt");
        }
        return seen;
    }

    TempFolder folder_;
    std::u16string path_ = (folder_.Path() / u"привет a.cmd").u16string();
};

TEST_F(StartedFile, GetsItsParametersAndTheLastErrorStays) {
    WinProgramStarter starter;
    EXPECT_TRUE(starter.IsFile(path_));
    EXPECT_FALSE(starter.IsFile(folder_.Path().u16string()));
    EXPECT_TRUE(starter.IsFolder(folder_.Path().u16string()));
    SetLastError(77);
    EXPECT_EQ(starter.Start(path_, u" 1 \"2 3\""), std::nullopt);
    EXPECT_EQ(GetLastError(), 77U);
    EXPECT_EQ(WaitForWords(), "seen 1 \"2 3\"\r\n");
}

TEST_F(StartedFile, IsOpenedByTheShellWhichTellsOfAMissingOne) {
    EXPECT_GT(WinShellOpener().Open(0, path_, ShowState::Normal), 32);
    EXPECT_EQ(WaitForWords(), "seen \r\n");
    EXPECT_LE(WinShellOpener().Open(0, path_ + u".txt", ShowState::Normal), 32);
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

class CountingInput : public WinInputInjector {
  public:
    std::vector<std::size_t> Taken;

    std::size_t Send(std::span<const KeyEvent> events) override {
        Taken.push_back(WinInputInjector::Send(events));
        return Taken.back();
    }
};

TEST(LayoutSwitcher, PressesTheShortcutAndStopsWhenTheWindowHasTheLanguage) {
    CountingInput input;
    const WinKeyboardLayouts layouts;
    const WinDesktopWindows windows;
    WinTargetWindows targets;
    WinClock clock;
    MemoryLog log;
    LayoutSwitcher switcher({.Input = input,
                             .Layouts = layouts,
                             .Windows = windows,
                             .Targets = targets,
                             .Clock = clock,
                             .Log = log});
    const Lcid current = LanguageOf(windows.KeyboardLayout(0));
    EXPECT_FALSE(switcher.IsInstalled(0xFFFF));
    switcher.SwitchKeyboardLayout(current, reinterpret_cast<WindowHandle>(GetDesktopWindow()));
    EXPECT_GE(input.Taken.size(), 1U);
    EXPECT_LE(input.Taken.size(), layouts.InstalledLanguages().size());
    EXPECT_EQ(input.Taken.front(), 4U);
    EXPECT_FALSE(input.IsKeyDown(kVkMenu));
    EXPECT_FALSE(input.IsKeyDown(kVkShift));
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "macros/layout_switcher.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_target_windows.h"

namespace vbr {
namespace {

WindowHandle ToHandle(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

TEST(WinTargetWindows, TellWhatLivesAndWhose) {
    WinTargetWindows windows;
    const HWND own =
        CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    EXPECT_TRUE(windows.IsWindow(ToHandle(own)));
    EXPECT_TRUE(windows.IsOwnProcess(ToHandle(own)));
    EXPECT_FALSE(windows.IsOwnProcess(ToHandle(GetDesktopWindow())));
    EXPECT_FALSE(windows.RunsElevated(ToHandle(own)));
    windows.Wake(ToHandle(own));
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, own, WM_NULL, WM_NULL, PM_REMOVE));
    DestroyWindow(own);
    EXPECT_FALSE(windows.IsWindow(ToHandle(own)));
    EXPECT_FALSE(windows.RunsElevated(ToHandle(own)));
    EXPECT_FALSE(windows.IsWindow(0));
}

TEST(WinProgramStarter, StartsAFileWithItsParametersAndKeepsTheLastError) {
    const TempFolder folder;
    folder.Write(u"a b.cmd", "@>\"%~dp0seen.txt\" echo %*\r\n");
    const std::u16string path = (folder.Path() / u"a b.cmd").u16string();
    WinProgramStarter starter;
    EXPECT_TRUE(starter.IsFile(path));
    EXPECT_FALSE(starter.IsFile(folder.Path().u16string()));
    EXPECT_TRUE(starter.IsFolder(folder.Path().u16string()));
    SetLastError(77);
    EXPECT_EQ(starter.Start(path, u" 1 \"2 3\""), std::nullopt);
    EXPECT_EQ(GetLastError(), 77U);
    std::string seen;
    for (int i = 0; i < 500 && !seen.ends_with("\n"); ++i) {
        Sleep(20);
        seen = folder.Read("seen.txt");
    }
    EXPECT_EQ(seen, "1 \"2 3\"\r\n");
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
    LayoutSwitcher switcher({input, layouts, windows, targets, clock, log});
    const Lcid current = LanguageOf(windows.KeyboardLayout(0));
    ASSERT_TRUE(switcher.IsInstalled(current));
    EXPECT_FALSE(switcher.IsInstalled(0xFFFF));
    const std::size_t installed = layouts.InstalledLanguages().size();
    switcher.SwitchKeyboardLayout(current, ToHandle(GetDesktopWindow()));
    EXPECT_GE(input.Taken.size(), 1U);
    EXPECT_LE(input.Taken.size(), installed);
    EXPECT_EQ(input.Taken.front(), 4U);
    EXPECT_FALSE(input.IsKeyDown(kVkMenu));
    EXPECT_FALSE(input.IsKeyDown(kVkShift));
}

}  // namespace
}  // namespace vbr

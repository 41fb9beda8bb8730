// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shellapi.h>

#include "base/text.h"
#include "fakes/temp_folder.h"
#include "macros/command_arguments.h"
#include "macros/command_split.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_shell_opener.h"
#include "platform/win32/win_target_windows.h"
#include "windows/access_list.h"
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

TEST(WinProgramPaths, AreTheSameForAProcessThatTellsOthersLittle) {
    const WinDesktopWindows windows;
    const std::u16string path = windows.ProgramPath(GetCurrentProcessId());
    EXPECT_TRUE(EndsWithNoCase(path, u"\\vellumbridge_windows_tests.exe")) << Utf16ToUtf8(path);
    const HANDLE own = GetCurrentProcess();
    const UniqueLocal<void> before = Descriptor(AccessListOf(own, SE_KERNEL_OBJECT).c_str());
    // As a process with more rights does.
    ASSERT_TRUE(SetKernelObjectSecurity(own, DACL_SECURITY_INFORMATION,
                                        Descriptor(L"D:(A;;0x1000;;;WD)").get()));
    EXPECT_FALSE(UniqueHandle(OpenProcess(PROCESS_VM_READ, FALSE, GetCurrentProcessId())));
    EXPECT_EQ(windows.ProgramPath(GetCurrentProcessId()), path);
    SetKernelObjectSecurity(own, DACL_SECURITY_INFORMATION, before.get());
}

TEST(WinShellOpener, OpensAFileAndTellsOfAMissingOne) {
    TempFolder folder;
    folder.Write(u"привет a.cmd", "@>\"%~dp0seen.txt\" echo seen %*\r\n");
    const std::u16string path = (folder.Path() / u"привет a.cmd").u16string();
    EXPECT_EQ(WinShellOpener().Open(0, path, ShowState::Normal), std::nullopt);
    EXPECT_TRUE(PumpUntil([&] { return folder.Read("seen.txt") == "seen \r\n"; }));
    EXPECT_TRUE(WinShellOpener().Open(0, path + u".txt", ShowState::Normal));
}

// The command line of a program whose parameters hold values, as the system takes it apart.
std::vector<std::wstring> ArgumentsOf(const CommandText& parameters) {
    const std::u16string line = Concat(u"p.exe ", ArgumentText(parameters));
    int count = 0;
    const UniqueLocal<LPWSTR> words(CommandLineToArgvW(Wide(line), &count));
    return {words.get() + 1, words.get() + count};
}

TEST(ArgumentText, TheSystemFindsEachValueWholeInItsArgument) {
    const std::u16string signs = u"a \"\\\t&";
    for (std::size_t number = 1; number < 6 * 6 * 6 * 6 * 6; ++number) {
        std::u16string value;
        for (std::size_t rest = number; rest > 0; rest /= signs.size()) {
            value += signs[rest % signs.size()];
        }
        const std::wstring wide(Wide(value));
        CommandText line;
        for (const char16_t* written : {u"x ", u" /k:", u" \"", u"\" C:\\", u"\\ \"C:\\",
                                        u"\\\\\" \"y z\"", u"\"w\" \\\"", u"x z"}) {
            if (line.Size() > 0) {
                line.Append(value, true);
            }
            line.Append(written, false);
        }
        ASSERT_THAT(ArgumentsOf(line),
                    testing::ElementsAre(L"x", wide, L"/k:" + wide, wide, L"C:\\" + wide + L"\\",
                                         L"C:\\" + wide + L"\\", L"y z" + wide + L"w",
                                         L"\"" + wide + L"x", L"z"))
            << Utf16ToUtf8(value);
    }
}

// Programs, files and variables of a test's own.
class WinProgramStarterTest : public testing::Test {
  protected:
    std::u16string Path(std::u16string_view name) const {
        return (folder_.Path() / name).u16string();
    }
    bool Start(const CommandText& command) {
        const CommandParts parts = SplitCommandLine(command, starter_);
        return parts.IsThere && !starter_.Start(parts.Path, parts.Parameters);
    }

    TempFolder folder_;
    WinProgramStarter starter_;
};

TEST_F(WinProgramStarterTest, AValueStartsNoCommandOfTheCommandProcessor) {
    folder_.Write(u"report it.cmd", "@>\"%~dp0seen.txt\" echo %~1\r\n");
    CommandText command(Path(u"report it.cmd") + u" ");
    const std::u16string attack = Concat(u"a\" & echo 1 >", Path(u"other.txt"), u" & \"b%OS%");
    command.Append(attack, true);
    ASSERT_TRUE(Start(command));
    EXPECT_TRUE(
        PumpUntil([&] { return folder_.Read("seen.txt").find("b OS") != std::string::npos; }));
    EXPECT_FALSE(starter_.IsFile(Path(u"other.txt")));
}

TEST_F(WinProgramStarterTest, NamesAreLookedUpAsTheShellDoes) {
    folder_.Write(u"registered one.exe", "");
    const HKEY root = HKEY_CURRENT_USER;
    const wchar_t* const key =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\vbr registered.exe";
    const std::u16string quoted = Concat(u"\"", Path(u"registered one.exe"), u"\"");
    RegSetKeyValueW(root, key, nullptr, REG_SZ, Wide(quoted),
                    static_cast<DWORD>((quoted.size() + 1) * sizeof(wchar_t)));
    EXPECT_EQ(starter_.FindProgram(u"vbr registered"), Path(u"registered one.exe"));
    RegDeleteKeyW(root, key);
    EXPECT_EQ(starter_.FindProgram(u"vbr registered"), std::nullopt);
    EXPECT_EQ(starter_.FindProgram(Path(u"registered one")), Path(u"registered one.exe"));
    EXPECT_TRUE(starter_.IsFile(starter_.FindProgram(u"notepad").value_or(u"")));
    EXPECT_EQ(starter_.FindProgram(folder_.Path().u16string()), std::nullopt);
    EXPECT_TRUE(starter_.IsFolder(folder_.Path().u16string()));
    EXPECT_FALSE(starter_.IsFile(folder_.Path().u16string()));
    const std::u16string longValue(3000, u'x');
    SetEnvironmentVariableW(L"VBR_TEST", Wide(longValue));
    EXPECT_EQ(starter_.EnvironmentVariable(u"vbr_test"), longValue);
    SetEnvironmentVariableW(L"VBR_TEST", L"");
    EXPECT_EQ(starter_.EnvironmentVariable(u"VBR_TEST"), u"");
    SetEnvironmentVariableW(L"VBR_TEST", nullptr);
    EXPECT_EQ(starter_.EnvironmentVariable(u"VBR_TEST"), std::nullopt);
}

TEST_F(WinProgramStarterTest, AFailedStartIsToldByTheCallAlone) {
    folder_.Write(u"x.nothing", "");
    folder_.Write(u"broken.exe", "no program");
    for (const std::u16string_view path : {u"gone.exe", u"x.nothing", u"broken.exe"}) {
        const auto error = starter_.Start(Path(path), u" a");
        ASSERT_TRUE(error) << Utf16ToUtf8(path);
        EXPECT_NE(error->Text, u"") << error->Code;
    }
    EXPECT_TRUE(starter_.Start(Path(std::u16string(40000, u'x')), u""));
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

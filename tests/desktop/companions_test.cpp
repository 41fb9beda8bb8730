// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <commctrl.h>
#include <fstream>

#include "desktop/driver/history.h"
#include "desktop/program_test.h"
#include "menu/extra_commands.h"
#include "platform/object_names.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

constexpr wchar_t kEditorClass[] = L"Vellumbridge_Editor";

// The editor and the welcome program beside the running one.
class CompanionsOnDesktop : public ProgramTest {
  protected:
    CompanionsOnDesktop() { program_.AddCompanions(); }
    ~CompanionsOnDesktop() override { CloseEditor(); }

    static void Command(int id) {
        PostMessageW(TrayWindow(), WM_COMMAND, static_cast<WPARAM>(id), 0);
    }
    static HWND WaitForEditor() {
        HWND editor = nullptr;
        EXPECT_TRUE(WaitUntil([&editor] {
            editor = FindWindowW(kEditorClass, nullptr);
            return editor && IsWindowVisible(editor);
        }));
        return editor;
    }
    static void CloseEditor() {
        const HWND editor = FindWindowW(kEditorClass, nullptr);
        PostMessageW(editor, WM_CLOSE, 0, 0);
        EXPECT_TRUE(WaitUntil([] { return !FindWindowW(kEditorClass, nullptr); }));
    }
    // The row in that relation to the selected one.
    static void SelectRow(HWND editor, WPARAM which) {
        const HWND tree = GetDlgItem(editor, kCtlEditorTree);
        const LRESULT from = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
        SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET,
                     SendMessageW(tree, TVM_GETNEXTITEM, which, from));
    }
    static std::u16string TitleIn(HWND editor) {
        return TextOf(GetDlgItem(editor, kCtlEditorTitle));
    }
    static HWND WaitForBox(const wchar_t* text) {
        HWND box = nullptr;
        WaitUntil([&] {
            box = FindWindowW(L"#32770", L"Vellumbridge");
            return box && TextOf(GetDlgItem(box, 0xFFFF)).starts_with(FromWide(text));
        });
        return box;
    }
    bool MenuHas(const EditWindow& target, std::u16string_view label) {
        OpenMenu(target);
        const bool has = WaitUntil([label] { return !FindMenuLine(label).Label.empty(); }, 2000);
        CloseMenu();
        return has;
    }

    Copier copier_;
};

TEST_F(CompanionsOnDesktop, APhraseFromTheClipboardIsInTheMenuWhenTheEditorCloses) {
    StartWithPhrase("text");
    copier_.CopyText(u"Copied line\r\nand another");
    Command(kCmdSavePhraseFromClipboard);
    HWND editor = nullptr;
    ASSERT_TRUE(copier_.WaitUntil([&editor] {
        editor = FindWindowW(kEditorClass, nullptr);
        return editor && TitleIn(editor) == u"Copied line";
    }));
    CloseEditor();
    EXPECT_TRUE(WaitForLog(u"PhraseEditor closed"));
    const Notepad notepad;
    EXPECT_TRUE(MenuHas(notepad, u"Copied line"));
    EXPECT_TRUE(WaitForLog(u"Succcessfully start PhraseEditor"));
}

TEST_F(CompanionsOnDesktop, ASelectionBecomesAPhraseHoweverLongItIs) {
    StartWithPhrase("text");
    const Notepad notepad;
    const std::u16string selection = u"Selected " + std::u16string(2000, u'x');
    notepad.SetText(selection);
    notepad.Select(0, -1);
    OpenMenu(notepad);
    const std::vector<MenuLine> lines = ReadMenu(TopMenuWindow());
    const auto line = std::ranges::find_if(lines, [](const MenuLine& each) {
        return each.Label.starts_with(u"Selection into Phrase");
    });
    ASSERT_NE(line, lines.end());
    ClickMenuLine(*line, MouseButton::Left);
    const HWND editor = WaitForEditor();
    EXPECT_TRUE(WaitUntil([editor] { return TitleIn(editor).starts_with(u"Selected xxx"); }));
    EXPECT_EQ(TextOf(GetDlgItem(editor, kCtlEditorText)), selection);
}

TEST_F(CompanionsOnDesktop, WhatIsTypedAndDeletedInTheEditorReachesFilesAndMenu) {
    program_.AddPhrase("Goes", 2, "x");
    StartWithPhrase("text");
    // The key and the event open one editor.
    EXPECT_EQ(program_.Start(L"/edit").WaitForExit(kPatienceMs), 0U);
    const HWND editor = WaitForEditor();
    EXPECT_EQ(program_.Start(L"/edit").WaitForExit(kPatienceMs), 0U);
    PostMessageW(editor, WM_COMMAND, kCtlEditorNewPhrase, 0);
    ASSERT_TRUE(WaitUntil([editor] { return TitleIn(editor) == u"New phrase"; }));
    ASSERT_TRUE(WaitUntil([editor] {
        SetForegroundWindow(editor);
        return GetForegroundWindow() == editor;
    }));
    TypeText(u"Typed title");
    EXPECT_TRUE(WaitUntil([editor] { return TitleIn(editor) == u"Typed title"; }));
    PressKeys({VK_MENU, 'T'});  // the text's access key
    TypeText(u"typed text");
    PressKeys({VK_CONTROL, 'S'});
    const auto file = program_.Phrases() / L"New_phrase.vellumbridge";
    EXPECT_TRUE(WaitUntil([&] {
        return FileBytes(file).find("<MenuName>Typed title</MenuName>") != std::string::npos &&
               FileBytes(file).find("<Cmd>typed text</Cmd>") != std::string::npos;
    })) << FileBytes(file);
    // What is left unsaved is saved when another row is selected, a group's title too.
    TypeText(u" more");
    EXPECT_TRUE(WaitUntil(
        [editor] { return TextOf(GetDlgItem(editor, kCtlEditorText)) == u"typed text more"; }));
    SelectRow(editor, TVGN_ROOT);
    EXPECT_TRUE(
        WaitUntil([&] { return FileBytes(file).find("typed text more") != std::string::npos; }));
    EXPECT_EQ(TitleIn(editor), u"Only phrase");
    PostMessageW(editor, WM_COMMAND, kCtlEditorNewGroup, 0);
    ASSERT_TRUE(WaitUntil([editor] { return TitleIn(editor) == u"New group"; }));
    SetWindowTextW(GetDlgItem(editor, kCtlEditorTitle), L"Letters");
    SelectRow(editor, TVGN_NEXTVISIBLE);
    EXPECT_TRUE(
        WaitUntil([&] { return std::filesystem::exists(program_.Phrases() / L"Letters"); }));
    EXPECT_TRUE(WaitUntil([editor] { return TitleIn(editor) == u"Only phrase"; }));
    EXPECT_EQ(SendMessageW(GetDlgItem(editor, kCtlEditorTree), TVM_GETCOUNT, 0, 0), 4);
    CloseEditor();
    const Notepad notepad;
    EXPECT_TRUE(MenuHas(notepad, u"Typed title"));
    EXPECT_FALSE(FindWindowW(kEditorClass, nullptr));
}

TEST_F(CompanionsOnDesktop, AFormattedPhraseKeepsItsFormatsWhenItIsEdited) {
    const auto file = program_.AddPhrase("Formatted", 0, "{\\rtf1 plain \\b bold\\b0 }", "RTF");
    StartWithPhrase("text");
    EXPECT_EQ(program_.Start(L"/edit").WaitForExit(kPatienceMs), 0U);
    const HWND editor = WaitForEditor();
    ASSERT_TRUE(WaitUntil([editor] { return TitleIn(editor) == u"Formatted"; }));
    EXPECT_EQ(TextOf(GetDlgItem(editor, kCtlEditorText)), u"plain bold");
    ASSERT_TRUE(WaitUntil([editor] {
        SetForegroundWindow(editor);
        return GetForegroundWindow() == editor;
    }));
    PressKeys({VK_MENU, 'T'});  // the text's access key
    PressKeys({VK_CONTROL, VK_END});
    PressKeys({VK_CONTROL, 'I'});
    TypeText(u" more");
    PressKeys({VK_CONTROL, 'S'});
    EXPECT_TRUE(WaitUntil([&] { return FileBytes(file).find(" more") != std::string::npos; }));
    const std::string bytes = FileBytes(file);
    EXPECT_NE(bytes.find("\\b bold"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\\i"), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("&#x00;"), std::string::npos) << bytes;
}

TEST_F(CompanionsOnDesktop, AnEditorThatIsMissingIsToldAndOneThatCrashesIsRereadAfter) {
    StartWithPhrase("text");
    const auto path = program_.Folder() / L"VellumbridgeEditor.exe";
    Command(kCmdEditPhrases);
    DWORD id = 0;
    GetWindowThreadProcessId(WaitForEditor(), &id);
    program_.AddPhrase("Meanwhile", 2, "x");
    TerminateProcess(UniqueHandle(OpenProcess(PROCESS_TERMINATE, FALSE, id)).get(), 9);
    const Notepad notepad;
    EXPECT_TRUE(WaitUntil([&] { return MenuHas(notepad, u"Meanwhile"); }));
    ASSERT_TRUE(WaitUntil([&] {
        std::error_code error;
        return std::filesystem::remove(path, error);
    }));
    Command(kCmdEditPhrases);
    for (const wchar_t* text : {L"Cannot start settings module", L"Cannot find file"}) {
        const HWND box = WaitForBox(text);
        ASSERT_TRUE(box);
        EXPECT_TRUE(WaitUntil([box] {
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return !IsWindow(box);
        }));
    }
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(CompanionsOnDesktop, TheProgramEndsWhileTheEditorIsOpen) {
    StartWithPhrase("text");
    Command(kCmdEditPhrases);
    WaitForEditor();
    EXPECT_EQ(program_.End(), 0U);
    CloseEditor();
}

TEST_F(CompanionsOnDesktop, AFirstStartGreetsOnce) {
    std::ofstream(program_.Folder() / L"Settings.ini") << "[Settings]\nWriteLog=1\n";
    ASSERT_TRUE(program_.StartResident());
    HWND welcome = nullptr;
    EXPECT_TRUE(WaitUntil([&welcome] {
        welcome = FindWindowW(L"#32770", L"Welcome To Vellumbridge");
        return welcome && IsWindowVisible(welcome);
    }));
    EXPECT_EQ(TextOf(GetDlgItem(welcome, kCtlWelcomeKeys)), u"Ctrl + Alt + Return");
    PostMessageW(welcome, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([welcome] { return !IsWindow(welcome); }));
    EXPECT_NE(
        FileBytes(program_.Folder() / L"Settings.ini").find("Welcome_Already_Started_V2_60=1"),
        std::string::npos);
    Command(kCmdWelcome);
    EXPECT_TRUE(WaitUntil([&welcome] {
        return (welcome = FindWindowW(L"#32770", L"Welcome To Vellumbridge")) != nullptr;
    }));
    PostMessageW(welcome, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([welcome] { return !IsWindow(welcome); }));
    RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Run",
                       L"Vellumbridge");
}

TEST_F(CompanionsOnDesktop, AHotKeyChosenInTheEditorServesWhenItCloses) {
    StartWithPhrase("text");
    Command(kCmdEditPhrases);
    WaitForEditor();
    WritePrivateProfileStringW(L"Settings", L"Hotkey",
                               std::to_wstring(MOD_CONTROL << 16 | VK_F9).c_str(),
                               (program_.Folder() / L"Settings.ini").c_str());
    CloseEditor();
    EXPECT_TRUE(WaitUntil([] {
        const bool isFree = RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN);
        UnregisterHotKey(nullptr, 7);
        return isFree;
    }));
    EXPECT_TRUE(WaitUntil([] {
        const bool isTaken = !RegisterHotKey(nullptr, 7, MOD_CONTROL, VK_F9);
        UnregisterHotKey(nullptr, 7);
        return isTaken;
    }));
}

}  // namespace
}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <fstream>
#include <gmock/gmock.h>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/driver/wordpad.h"
#include "desktop/program_test.h"
#include "resources/resource_ids.h"

namespace vbr::desktop {
namespace {

using testing::HasSubstr;

// The program's dialog in front, when it has one.
HWND DialogInFront() {
    wchar_t name[16] = {};
    const HWND front = GetForegroundWindow();
    GetClassNameW(front, name, 16);
    return std::wstring(name) == L"#32770" ? front : nullptr;
}

// A prompt that has come up whole: going topmost is the last that it does.
HWND WaitForPrompt() {
    const auto isWhole = [] {
        const HWND dialog = DialogInFront();
        return dialog && (GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    };
    return WaitUntil(isWhole) ? DialogInFront() : nullptr;
}

// The program with phrases in its menu.
class DeliveryTest : public ProgramTest {
  protected:
    void AddPhrase(const std::string& xmlCmd, const std::string& dataType = "TEXT") {
        ++phrases_;
        program_.AddPhrase("Phrase " + std::to_string(phrases_), phrases_, xmlCmd, dataType);
    }
    void Start(int pasteMethod) {
        ProgramTest::Start("TextPasteMethod_v150=" + std::to_string(pasteMethod));
    }

    int phrases_ = 0;
};

TEST_F(DeliveryTest, TheCursorStandsAtItsMarkWhetherTheTextIsTypedOrPasted) {
    AddPhrase("text%CURSOR_POS%&#x0D;&#x0A;end");
    const std::u16string expected = u"text\r\nend";
    const Notepad notepad;
    for (const bool pastes : {false, true}) {
        Start(pastes ? 1 : 0);
        notepad.SetText(u"");
        Choose(notepad);
        EXPECT_EQ(notepad.WaitForText(expected), expected);
        EXPECT_EQ(ReadClipboard()[L"13"].size() == 2 * expected.size() + 2, pastes);
        // The steps come last.
        EXPECT_TRUE(WaitUntil([&] {
            return SendMessageW(notepad.Edit(), EM_GETSEL, 0, 0) == MAKELONG(4, 4);
        })) << pastes;
        EXPECT_EQ(program_.End(), 0U);
    }
}

TEST_F(DeliveryTest, BoldAndColouredTextArrivesSoInWordPadWithTheAnswerOfItsPrompt) {
    AddPhrase(
        "{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}plain {\\b bold} %PROMPT_TEXT=\\{in\\}% "
        "{\\cf1 red} \xD0\x96%CURSOR_POS%!}",
        "RTF");
    Start(0);
    const WordPad wordpad;
    ASSERT_TRUE(wordpad.IsOpen());
    Choose(wordpad);
    ASSERT_TRUE(WaitForPrompt());
    PressKeys({VK_RETURN});
    EXPECT_EQ(wordpad.WaitForText(u"plain bold in red Ж!"), u"plain bold in red Ж!");
    // The cursor's steps come a moment after the text.
    EXPECT_TRUE(WaitUntil(
        [&] { return SendMessageW(wordpad.Edit(), EM_GETSEL, 0, 0) == MAKELONG(19, 19); }));
    PressKeys({'X'});
    EXPECT_EQ(wordpad.WaitForText(u"plain bold in red Жx!"), u"plain bold in red Жx!");
    wordpad.Select(0, -1);
    SendMessageW(wordpad.Edit(), WM_COPY, 0, 0);
    const std::string source = ReadClipboard()[L"Rich Text Format"];
    EXPECT_THAT(source, HasSubstr("\\red255\\green0\\blue0"));
    EXPECT_THAT(source, HasSubstr("\\b bold\\b0"));
    EXPECT_THAT(source, HasSubstr("\\cf1 red\\cf0"));
}

TEST_F(DeliveryTest, APromptStandsAtTheCaretWithItsDefaultSelectedAndItsAnswerArrives) {
    AddPhrase("a %PROMPT_TEXT={default}% b%KEYPRESS_ENTER%%PROMPT_TEXT={second}%c");
    Start(2);
    const Notepad notepad;
    notepad.SetText(u"one\r\ntwo ");
    notepad.Select(9, 9);
    Choose(notepad);
    HWND dialog = WaitForPrompt();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(notepad.Text(), u"one\r\ntwo a ");
    EXPECT_TRUE(TextOf(dialog).starts_with(u"Vellumbridge - ["));
    // The caret itself is gone with the focus; it stood behind the last character.
    const auto last = SendMessageW(notepad.Edit(), EM_POSFROMCHAR, 10, 0);
    POINT corner{LOWORD(last), HIWORD(last)};
    ClientToScreen(notepad.Edit(), &corner);
    RECT place{};
    GetWindowRect(dialog, &place);
    const RECT nearby{corner.x + 1, corner.y + 1, corner.x + 20, corner.y + 30};
    EXPECT_TRUE(PtInRect(&nearby, {place.left, place.top}));
    const HWND answer = GetDlgItem(dialog, kCtlPromptAnswer);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(dialog, nullptr);
    EXPECT_TRUE(
        WaitUntil([&] { return GetGUIThreadInfo(thread, &info) && info.hwndFocus == answer; }));
    EXPECT_EQ(TextOf(answer), u"default");
    EXPECT_EQ(SendMessageW(answer, EM_GETSEL, 0, 0), MAKELONG(0, 7));
    PressKeys({'Q'});
    PressKeys({VK_RETURN});
    const std::u16string between = u"one\r\ntwo a q b\r\n";
    EXPECT_EQ(notepad.WaitForText(between), between);
    dialog = WaitForPrompt();
    ASSERT_TRUE(dialog);
    PressKeys({VK_ESCAPE});
    EXPECT_EQ(notepad.WaitForText(between + u"c"), between + u"c");
}

TEST_F(DeliveryTest, APromptThatAMonitorsScaleMakesLargerIsPlacedAnew) {
    AddPhrase("%PROMPT_TEXT={}%");
    Start(0);
    const Notepad notepad;
    Choose(notepad);
    const HWND dialog = WaitForPrompt();
    ASSERT_TRUE(dialog);
    const int height = GetSystemMetrics(SM_CYSCREEN) - 50;
    SetWindowPos(dialog, nullptr, 0, 0, 300, height, SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(192, 192), 0);
    EXPECT_TRUE(WaitUntil([dialog] {
        RECT place{};
        GetWindowRect(dialog, &place);
        return place.bottom < GetSystemMetrics(SM_CYSCREEN);
    }));
}

TEST_F(DeliveryTest, ACommandStartsItsProgramWithItsParameters) {
    std::ofstream(program_.Folder() / "report it.cmd") << "@>\"%~dp0seen.txt\" echo %*\r\n";
    AddPhrase((program_.Folder() / "report it.cmd").string() +
                  " one \"two %SELECTED_TEXT%\" %CURSOR_POS%3",
              "EXEC");
    Start(0);
    const Notepad notepad;
    notepad.SetText(u"x\r\ny");
    notepad.Select(0, 4);
    Choose(notepad);
    const std::string expected = "one \"two x y\" 3\r\n";
    const std::filesystem::path seen = program_.Folder() / "seen.txt";
    WaitUntil([&] { return FileBytes(seen) == expected; });
    EXPECT_EQ(FileBytes(seen), expected);
}

TEST_F(DeliveryTest, AStartThatFailsIsExplained) {
    AddPhrase("C:\\missing\\tool.exe \"a b\"", "EXEC");
    Start(0);
    const Notepad notepad;
    Choose(notepad);
    HWND box = nullptr;
    EXPECT_TRUE(WaitUntil([&] { return (box = DialogInFront()) != nullptr; }));
    EXPECT_EQ(TextOf(box), u"Vellumbridge");  // no other box comes before
    std::u16string text;
    for (HWND child = nullptr; (child = FindWindowExW(box, child, nullptr, nullptr)) != nullptr;) {
        text += TextOf(child);
    }
    EXPECT_THAT(Utf16ToUtf8(text), HasSubstr("\n\nCommand: C:\\missing\\tool.exe \"a b\"\n"));
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(box); }));
}

TEST_F(DeliveryTest, AHungTargetHoldsNobodyUp) {
    AddPhrase("text");
    Start(0);
    HangingTarget target;
    target.Hang();
    PressHotkey();
    EXPECT_TRUE(WaitForMenu());
    ChooseMenuItem(0);
    EXPECT_TRUE(WaitForNoMenu());
    EXPECT_TRUE(WaitForLog(u"Not delivered: text"));
    EXPECT_TRUE(WaitUntilReady());
    const Notepad notepad;
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"text"), u"text");
}

}  // namespace
}  // namespace vbr::desktop

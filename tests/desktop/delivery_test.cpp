// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <fstream>
#include <gmock/gmock.h>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/driver/wordpad.h"
#include "desktop/program_test.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace vbr::desktop {
namespace {

using testing::HasSubstr;

GUITHREADINFO ThreadInfo(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

// The program's dialog in front, when it has one.
HWND DialogInFront() {
    const HWND front = GetForegroundWindow();
    wchar_t name[16];
    return front && GetClassNameW(front, name, 16) > 0 && std::wstring(name) == L"#32770" ? front
                                                                                          : nullptr;
}

// A prompt that has come up whole: going topmost is the last that it does.
HWND WaitForPrompt() {
    HWND dialog = nullptr;
    WaitUntil([&] {
        dialog = DialogInFront();
        return dialog && (GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    });
    return dialog;
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

TEST_F(DeliveryTest, MethodAndLengthChooseBetweenKeysAndClipboard) {
    const std::string texts[] = {std::string(99, 'a') + "%CURSOR_POS%",
                                 std::string(98, 'b') + "%CURSOR_POS%&#x0D;&#x0A;"};
    for (const std::string& text : texts) {
        AddPhrase(text);
    }
    const std::u16string expected[] = {std::u16string(99, u'a'),
                                       std::u16string(98, u'b') + u"\r\n"};
    const bool pasted[][2] = {{false, false}, {true, true}, {false, true}};
    const Notepad notepad;
    for (int method = 0; method < 3; ++method) {
        Start(method);
        for (int i = 0; i < 2; ++i) {
            notepad.SetText(u"");
            Choose(notepad, i);
            EXPECT_EQ(notepad.WaitForText(expected[i]), expected[i]);
            const std::string kept = ReadClipboard()[L"13"];
            EXPECT_EQ(kept.size() == 2 * expected[i].size() + 2, pasted[method][i])
                << method << " " << i;
            // The cursor waits before the line end, whatever the road. The steps come last.
            const DWORD where = i == 0 ? 99 : 98;
            EXPECT_TRUE(WaitUntil([&] {
                return SendMessageW(notepad.Edit(), EM_GETSEL, 0, 0) == MAKELONG(where, where);
            })) << method
                << " " << i;
        }
        EXPECT_EQ(program_.End(), 0U);
    }
}

TEST_F(DeliveryTest, BoldAndColouredTextArrivesSoInWordPad) {
    AddPhrase(
        "{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}plain {\\b bold} "
        "{\\cf1 red} \xD0\x96%CURSOR_POS%!}",
        "RTF");
    Start(0);
    const WordPad wordpad;
    ASSERT_TRUE(wordpad.IsOpen());
    Choose(wordpad);
    EXPECT_EQ(wordpad.WaitForText(u"plain bold red Ж!"), u"plain bold red Ж!");
    // The cursor's steps come a moment after the text.
    EXPECT_TRUE(WaitUntil([&] {
        return SendMessageW(wordpad.Edit(), EM_GETSEL, 0, 0) == MAKELONG(16, 16);
    }));
    PressKeys({'X'});
    EXPECT_EQ(wordpad.WaitForText(u"plain bold red Жx!"), u"plain bold red Жx!");
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
    EXPECT_GT(place.left, corner.x);
    EXPECT_LT(place.left, corner.x + 20);
    EXPECT_GT(place.top, corner.y);
    EXPECT_LT(place.top, corner.y + 30);
    const HWND answer = GetDlgItem(dialog, kCtlPromptAnswer);
    EXPECT_TRUE(WaitUntil([&] { return ThreadInfo(dialog).hwndFocus == answer; }));
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

TEST_F(DeliveryTest, TheProgramEndsUnderAnOpenPrompt) {
    AddPhrase("%PROMPT_TEXT={}%");
    Start(0);
    const Notepad notepad;
    Choose(notepad);
    ASSERT_TRUE(WaitForPrompt());
    EXPECT_EQ(program_.End(), 0U);
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
    // The shell may have a box of its own before.
    HWND box = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
        box = DialogInFront();
        if (box && TextOf(box) != u"Vellumbridge") {
            PressKeys({VK_RETURN});
            return false;
        }
        return box != nullptr;
    }));
    std::u16string text;
    EnumChildWindows(
        box,
        [](HWND child, LPARAM shown) -> BOOL {
            *reinterpret_cast<std::u16string*>(shown) += TextOf(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&text));
    EXPECT_THAT(Utf16ToUtf8(text), HasSubstr("\n\nCommand: C:\\missing\\tool.exe \"a b\"\n"));
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(box); }));
}

TEST_F(DeliveryTest, AClipboardThatIsHeldLosesThatTextAloneAndIsTold) {
    AddPhrase("never");
    AddPhrase("then");
    Start(1);
    const Notepad notepad;
    OpenMenu(notepad);
    ASSERT_TRUE(WaitUntil([] { return OpenClipboard(nullptr) != 0; }));
    ChooseMenuItem(0);
    ASSERT_TRUE(WaitForNoMenu());
    EXPECT_TRUE(WaitForLog(u"MutiCopy_Impl::Cannot set to clipboard"));
    CloseClipboard();
    Choose(notepad, 1);
    EXPECT_EQ(notepad.WaitForText(u"then"), u"then");
}

TEST_F(DeliveryTest, AMegabyteIsPasted) {
    std::string xml;
    std::u16string expected;
    for (int line = 0; line < 10'000; ++line) {
        xml += std::string(100, static_cast<char>('a' + line % 26)) + "&#x0D;&#x0A;";
        expected += std::u16string(100, static_cast<char16_t>(u'a' + line % 26)) + u"\r\n";
    }
    AddPhrase(xml);
    Start(2);
    const Notepad notepad;
    Choose(notepad);
    EXPECT_TRUE(notepad.WaitForText(expected) == expected);
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
    EXPECT_TRUE(WaitForLog(u"DoPrint: text"));
    EXPECT_TRUE(WaitUntilReady());
    const Notepad notepad;
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"text"), u"text");
}

TEST_F(DeliveryTest, ATargetThatClosesUnderTheMenuIsTold) {
    AddPhrase("text%ACTIVATE_KL_EN%");
    Start(1);
    {
        const Notepad notepad;
        OpenMenu(notepad);
    }
    ChooseMenuItem(0);
    ASSERT_TRUE(WaitForNoMenu());
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(CountInLog(u"The target window is gone"), 1);
}

}  // namespace
}  // namespace vbr::desktop

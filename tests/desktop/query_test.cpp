// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/driver/clipboard.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/driver/history.h"
#include "desktop/driver/wordpad.h"
#include "desktop/program_test.h"
#include "hook/posted/query_answer.h"
#include "platform/object_names.h"

namespace vbr::desktop {
namespace {

class Query : public ProgramTest {};

TEST_F(Query, ACancelledMenuGivesTheClipboardTheKeyboardAndTheTextBack) {
    StartWithPhrase("never");
    const Notepad notepad;
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    Copier().Copy({{CF_UNICODETEXT, {"k\0e\0p\0t\0\0\0", 10}},
                   {RegisterClipboardFormatW(L"Rich Text Format"), "{\\rtf1 kept}"},
                   {RegisterClipboardFormatW(L"Test Private"), {"\0\1\2", 3}}});
    const ClipboardContent before = ReadClipboard();
    ASSERT_GE(before.size(), 3U);
    OpenMenu(notepad);
    // Before the menu is there, and for no history a second time.
    EXPECT_EQ(ReadClipboard(), before);
    EXPECT_TRUE(IsClipboardMarked());
    CloseMenu();
    EXPECT_EQ(ReadClipboard(), before);
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    PressKeys({VK_HOME});
    PressKeys({'Z'});
    EXPECT_EQ(notepad.WaitForText(u"zselected"), u"zselected");
}

TEST_F(Query, ASelectionInWordPadReachesThePhrase) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    const WordPad wordpad;
    ASSERT_TRUE(wordpad.IsOpen());
    wordpad.SetText(u"one two three");
    wordpad.Select(4, 7);
    Choose(wordpad);
    EXPECT_EQ(wordpad.WaitForText(u"one [two] three"), u"one [two] three");
}

TEST_F(Query, AKeyThatAnotherProgramOwnsLeavesTheServiceOffAndIsNamed) {
    ASSERT_TRUE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
    StartWithPhrase("text");
    EXPECT_FALSE(OpenSignal(kEventDataNeeded));
    EXPECT_EQ(program_.End(), 0U);
    UnregisterHotKey(nullptr, 7);
    EXPECT_EQ(CountInLog(u"ERROR: Cannot register hot key Ctrl+Alt+"), 1);
}

// The program, made to ask its targets through the hook library.
class PostedRoute : public ProgramTest {
  protected:
    PostedRoute() : ProgramTest(Build::Test) {
        SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROAD", L"posted");
    }
    ~PostedRoute() override { SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROAD", nullptr); }
};

TEST_F(PostedRoute, TheMenuOpensAtTheCaretAndTheSelectionArrivesPastTheClipboardEachTime) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    const Notepad notepad;
    for (int round = 0; round < 10; ++round) {
        notepad.SetText(u"one two three");
        notepad.Select(4, 7);
        ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(notepad.Edit(), nullptr), &info);
        POINT below = {info.rcCaret.left, info.rcCaret.bottom};
        ClientToScreen(notepad.Edit(), &below);
        const DWORD clipboard = GetClipboardSequenceNumber();
        ASSERT_NO_FATAL_FAILURE(OpenMenu(notepad)) << round;
        RECT menu{};
        GetWindowRect(TopMenuWindow(), &menu);
        EXPECT_EQ(menu.left, below.x);
        EXPECT_EQ(menu.top, below.y);
        ChooseMenuItem(0);
        ASSERT_EQ(notepad.WaitForText(u"one [two] three"), u"one [two] three") << round;
        EXPECT_EQ(GetClipboardSequenceNumber(), clipboard);
    }
}

TEST_F(PostedRoute, AHungTargetCostsItsOwnMenuOnly) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    const Notepad notepad;
    notepad.SetText(u"one");
    notepad.Select(0, 3);
    HangingTarget target;
    target.Hang();
    PressHotkey();
    EXPECT_TRUE(WaitForLog(u"Sending message by PostMessage bRet=1"));
    EXPECT_TRUE(WaitUntilReady());
    // It comes round when nobody waits for its menu any more.
    Sleep(hook::kFreshMs + 500);
    target.GoOn();
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"[one]"), u"[one]");
    EXPECT_EQ(CountInLog(u"Received query:"), 1);
}

}  // namespace
}  // namespace vbr::desktop

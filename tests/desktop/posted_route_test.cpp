// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/driver/hanging_target.h"
#include "desktop/driver/wordpad.h"
#include "desktop/program_test.h"
#include "hook/query_answer.h"

namespace vbr::desktop {
namespace {

constexpr int kQueries = 100;

// The program, made to ask its targets through the hook library.
class PostedRoute : public ProgramTest {
  protected:
    PostedRoute() { SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROUTE", L"posted"); }
    ~PostedRoute() override { SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROUTE", nullptr); }

    // Wraps the middle one of three words.
    void WrapASelection(const EditWindow& target) {
        ASSERT_TRUE(target.IsOpen());
        target.SetText(u"one two three");
        target.Select(4, 7);
        ASSERT_TRUE(WaitUntil([&] { return target.BringToFront(); }));
        const POINT below = BelowCaret(target.Edit());
        const DWORD clipboard = GetClipboardSequenceNumber();
        OpenMenu(target);
        RECT menu;
        ASSERT_TRUE(GetWindowRect(TopMenuWindow(), &menu));
        EXPECT_EQ(menu.left, below.x);
        EXPECT_EQ(menu.top, below.y);
        ChooseMenuItem(0);
        EXPECT_EQ(target.WaitForText(u"one [two] three"), u"one [two] three");
        EXPECT_EQ(GetClipboardSequenceNumber(), clipboard);
    }

  private:
    static POINT BelowCaret(HWND edit) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        EXPECT_TRUE(GetGUIThreadInfo(GetWindowThreadProcessId(edit, nullptr), &info));
        EXPECT_EQ(info.hwndCaret, edit);
        POINT below = {info.rcCaret.left, info.rcCaret.bottom};
        ClientToScreen(edit, &below);
        return below;
    }
};

TEST_F(PostedRoute, TheMenuOpensAtTheCaretAndTheSelectionOfNotepadArrivesPastTheClipboard) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    WrapASelection(Notepad());
}

TEST_F(PostedRoute, TheMenuOpensAtTheCaretAndTheSelectionOfWordPadArrivesPastTheClipboard) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    WrapASelection(WordPad());
}

TEST_F(PostedRoute, AHungTargetCostsItsOwnMenuOnly) {
    StartWithPhrase("text");
    const Notepad notepad;
    HangingTarget target;
    target.Hang();
    PressHotkey();
    EXPECT_TRUE(WaitForLog(u"Sending message by PostMessage bRet=1"));
    EXPECT_TRUE(WaitUntilReady());
    // It comes round when nobody waits for its menu any more.
    Sleep(hook::kFreshMs + 500);
    target.GoOn();
    OpenMenu(notepad);
    CloseMenu();
    EXPECT_EQ(CountInLog(u"Received query:"), 1);
}

TEST_F(PostedRoute, AHundredQueriesInARowAreServed) {
    StartWithPhrase("text");
    const Notepad notepad;
    for (int i = 0; i < kQueries; ++i) {
        notepad.SetText(Concat(u"text ", i));
        notepad.Select(0, -1);
        ASSERT_NO_FATAL_FAILURE(OpenMenu(notepad)) << i;
        ASSERT_NO_FATAL_FAILURE(CloseMenu()) << i;
        // A press while the program is still busy with the menu before doesn't count.
        ASSERT_TRUE(WaitUntil([&] { return CountInLog(u"CVBRTrayWnd::OnWmCommandFromSelf") > i; }))
            << i;
    }
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(CountInLog(u"Received query:"), kQueries);
    for (int i = 0; i < kQueries; ++i) {
        EXPECT_EQ(CountInLog(Concat(u"SelText: [text ", i, u"]")), 1) << i;
    }
}

}  // namespace
}  // namespace vbr::desktop

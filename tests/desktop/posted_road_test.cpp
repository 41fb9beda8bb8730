// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "desktop/driver/wordpad.h"
#include "hook/query_answer.h"

namespace vbr::desktop {
namespace {

constexpr int kQueries = 100;

int CountIn(const std::u16string& text, std::u16string_view what) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; ++at) {
        ++count;
    }
    return count;
}

// The program, made to ask its targets through the hook library.
class PostedRoad : public testing::Test {
  protected:
    PostedRoad() { SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROAD", L"posted"); }
    ~PostedRoad() override { SetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROAD", nullptr); }

    void Start(const std::string& xmlCmd) {
        program_.AddPhrase("Only phrase", 1, xmlCmd);
        program_.WriteSettings("WriteLog=1");
        ASSERT_TRUE(program_.StartResident());
    }

    // Wraps the middle one of three words.
    void WrapASelection(const EditWindow& target) {
        ASSERT_TRUE(target.IsOpen());
        target.SetText(u"one two three");
        target.Select(4, 7);
        ASSERT_TRUE(WaitUntil([&] { return target.BringToFront(); }));
        const POINT below = BelowCaret(target.Edit());
        const DWORD clipboard = GetClipboardSequenceNumber();
        PressHotkey();
        ASSERT_TRUE(WaitForMenu());
        RECT menu;
        ASSERT_TRUE(GetWindowRect(FindWindowW(L"#32768", nullptr), &menu));
        EXPECT_EQ(menu.left, below.x);
        EXPECT_EQ(menu.top, below.y);
        ChooseMenuItem(0);
        EXPECT_EQ(target.WaitForText(u"one [two] three"), u"one [two] three");
        EXPECT_EQ(GetClipboardSequenceNumber(), clipboard);
    }

    bool IsInLog(std::u16string_view text) const {
        return program_.Log().find(text) != std::u16string::npos;
    }

    Program program_;

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

TEST_F(PostedRoad, TheMenuOpensAtTheCaretAndTheSelectionOfNotepadArrivesPastTheClipboard) {
    Start("[%SELECTED_TEXT%]");
    WrapASelection(Notepad());
}

TEST_F(PostedRoad, TheMenuOpensAtTheCaretAndTheSelectionOfWordPadArrivesPastTheClipboard) {
    Start("[%SELECTED_TEXT%]");
    WrapASelection(WordPad());
}

TEST_F(PostedRoad, AHungTargetCostsItsOwnMenuOnly) {
    Start("text");
    const Notepad notepad;
    HangingTarget target;
    target.Hang();
    PressHotkey();
    EXPECT_TRUE(WaitUntil([&] { return IsInLog(u"Sending message by PostMessage bRet=1"); }));
    EXPECT_TRUE(WaitUntilReady());
    // It comes round when nobody waits for its menu any more.
    Sleep(hook::kFreshMs + 500);
    target.GoOn();
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    PressHotkey();
    EXPECT_TRUE(WaitForMenu());
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitForNoMenu());
    EXPECT_EQ(CountIn(program_.Log(), u"Received query:"), 1);
}

TEST_F(PostedRoad, AHundredQueriesInARowAreServed) {
    Start("text");
    const Notepad notepad;
    for (int i = 0; i < kQueries; ++i) {
        notepad.SetText(Concat(u"text ", i));
        notepad.Select(0, -1);
        ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); })) << i;
        PressHotkey();
        ASSERT_TRUE(WaitForMenu()) << i;
        PressKeys({VK_ESCAPE});
        ASSERT_TRUE(WaitForNoMenu()) << i;
        // A press while the program is still busy with the menu before doesn't count.
        ASSERT_TRUE(WaitUntil([&] {
            return CountIn(program_.Log(), u"CVBRTrayWnd::OnWmCommandFromSelf") > i;
        })) << i;
    }
    EXPECT_EQ(program_.End(), 0U);
    const std::u16string log = program_.Log();
    EXPECT_EQ(CountIn(log, u"Received query:"), kQueries);
    for (int i = 0; i < kQueries; ++i) {
        EXPECT_EQ(CountIn(log, Concat(u"SelText: [text ", i, u"]")), 1) << i;
    }
}

}  // namespace
}  // namespace vbr::desktop

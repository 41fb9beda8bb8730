// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <cstring>
#include <gtest/gtest.h>

#include "base/text.h"
#include "desktop/driver/clipboard.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "desktop/driver/wordpad.h"
#include "platform/object_names.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

// Longer than two presses that belong together may be apart.
constexpr DWORD kApartMs = 700;

UniqueHandle OpenNamedEvent(std::u16string_view name) {
    return UniqueHandle(OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, Wide(name.data())));
}

class Query : public testing::Test {
  protected:
    void Start(const std::string& xmlCmd, const std::string& settings = "") {
        program_.AddPhrase("Only phrase", 1, xmlCmd);
        program_.WriteSettings(settings);
        ASSERT_TRUE(program_.StartResident());
    }
    void ChooseTheOnlyPhrase() {
        ASSERT_TRUE(WaitForMenu());
        ChooseMenuItem(0);
    }

    Program program_;
};

TEST_F(Query, ACancelledMenuGivesTheClipboardBackInAllItsFormats) {
    Start("never");
    const Notepad notepad;
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    const ClipboardContent before = FillClipboard();
    ASSERT_GE(before.size(), 6U);
    const DWORD untouched = GetClipboardSequenceNumber();
    ASSERT_TRUE(notepad.BringToFront());
    PressHotkey();
    ASSERT_TRUE(WaitForMenu());
    EXPECT_NE(GetClipboardSequenceNumber(), untouched);
    EXPECT_EQ(ReadClipboard()[L"13"].substr(0, 2), std::string("s\0", 2));
    PressKeys({VK_ESCAPE});
    ASSERT_TRUE(WaitForNoMenu());
    EXPECT_TRUE(WaitUntil([&] { return ReadClipboard() == before; }));
}

TEST_F(Query, ASelectionInWordPadReachesThePhrase) {
    Start("[%SELECTED_TEXT%]");
    const WordPad wordpad;
    ASSERT_TRUE(wordpad.IsOpen());
    wordpad.SetText(u"one two three");
    wordpad.Select(4, 7);
    ASSERT_TRUE(WaitUntil([&] { return wordpad.BringToFront(); }));
    PressHotkey();
    ChooseTheOnlyPhrase();
    EXPECT_EQ(wordpad.WaitForText(u"one [two] three"), u"one [two] three");
}

LRESULT CALLBACK RefuseAll(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COPY:
        case WM_GETTEXT:
        case WM_KEYDOWN:
        case WM_CHAR:
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

TEST_F(Query, TheMenuOpensOverAWindowThatRefusesEverything) {
    Start("text");
    WNDCLASSW refusing{};
    refusing.lpfnWndProc = RefuseAll;
    refusing.lpszClassName = L"Refusing";
    RegisterClassW(&refusing);
    const HWND window = CreateWindowW(L"Refusing", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                      200, 200, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    SetForegroundWindow(window);
    PressHotkey();
    EXPECT_TRUE(WaitUntil([] {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
        return IsMenuOpen();
    }));
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitForNoMenu());
    DestroyWindow(window);
}

TEST_F(Query, APressCountsOnlyWithASecondOneWhenTheSettingsAskForTwo) {
    Start("text", "Hotkey_Doubled=1");
    const Notepad notepad;
    PressHotkey();
    Sleep(kApartMs);
    PressHotkey();
    Sleep(kApartMs);
    EXPECT_FALSE(IsMenuOpen());
    // Both presses wait in the queue, so nothing can come between them.
    PressHotkey();
    PressHotkey();
    EXPECT_TRUE(WaitForMenu());
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitForNoMenu());
}

TEST_F(Query, AKeyThatAnotherProgramOwnsLeavesTheServiceOffAndIsNamed) {
    ASSERT_TRUE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
    Start("text", "WriteLog=1");
    EXPECT_FALSE(OpenNamedEvent(kEventDataNeeded));
    EXPECT_EQ(program_.End(), 0U);
    UnregisterHotKey(nullptr, 7);
    EXPECT_NE(program_.Log().find(u"ERROR: Cannot register hot key Ctrl+Alt+"),
              std::u16string::npos);
}

// This process stands for the hook library in a target.
class HookSide : public Query {
  protected:
    void Lay(const std::string& document) {
        const UniqueHandle mapping(
            OpenFileMappingW(FILE_MAP_WRITE, FALSE, Wide(kAreaInterchange.data())));
        void* view = MapViewOfFile(mapping.get(), FILE_MAP_WRITE, 0, 0, 0);
        ASSERT_TRUE(view);
        std::memcpy(view, document.c_str(), document.size() + 1);
        UnmapViewOfFile(view);
        ASSERT_TRUE(SetEvent(OpenNamedEvent(kEventDataNeeded).get()));
    }
};

TEST_F(HookSide, AQueryFromAnotherProcessOpensTheMenuWhereItSays) {
    Start("[%SELECTED_TEXT%]");
    const Notepad notepad;
    ASSERT_TRUE(notepad.BringToFront());
    const DWORD clipboard = GetClipboardSequenceNumber();
    Lay("<WPQuery POINT_X='300' POINT_Y='200'><HWND>" +
        std::to_string(reinterpret_cast<std::uintptr_t>(notepad.Edit())) +
        "</HWND><SelText StateSelText='2'>sel</SelText></WPQuery>");
    ASSERT_TRUE(WaitForMenu());
    RECT menu;
    ASSERT_TRUE(GetWindowRect(FindWindowW(L"#32768", nullptr), &menu));
    EXPECT_EQ(menu.left, 300);
    EXPECT_EQ(menu.top, 200);
    ChooseMenuItem(0);
    EXPECT_EQ(notepad.WaitForText(u"[sel]"), u"[sel]");
    EXPECT_EQ(GetClipboardSequenceNumber(), clipboard);
}

TEST_F(HookSide, AQueryThatNamesADeadWindowOpensTheMenuToo) {
    Start("text");
    const Notepad notepad;
    Lay("<WPQuery><HWND>7</HWND><SelText StateSelText='1'/></WPQuery>");
    EXPECT_TRUE(WaitForMenu());
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitForNoMenu());
}

TEST_F(HookSide, WhatIsNoQueryIsAnsweredAtOnceAndOpensNothing) {
    Start("text");
    const UniqueHandle completed = OpenNamedEvent(kEventDataCompleted);
    Lay("<WPQue");
    EXPECT_EQ(WaitForSingleObject(completed.get(), kPatienceMs), WAIT_OBJECT_0);
    EXPECT_FALSE(IsMenuOpen());
}

}  // namespace
}  // namespace vbr::desktop

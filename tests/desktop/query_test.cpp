// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <cstring>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/wordpad.h"
#include "desktop/program_test.h"
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

class Query : public ProgramTest {};

TEST_F(Query, ACancelledMenuGivesTheClipboardBackInAllItsFormats) {
    StartWithPhrase("never");
    const Notepad notepad;
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    const ClipboardContent before = FillClipboard();
    ASSERT_GE(before.size(), 6U);
    const DWORD untouched = GetClipboardSequenceNumber();
    OpenMenu(notepad);
    EXPECT_NE(GetClipboardSequenceNumber(), untouched);
    EXPECT_EQ(ReadClipboard()[L"13"].substr(0, 2), std::string("s\0", 2));
    CloseMenu();
    EXPECT_TRUE(WaitUntil([&] { return ReadClipboard() == before; }));
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

TEST_F(Query, APressCountsOnlyWithASecondOneWhenTheSettingsAskForTwo) {
    StartWithPhrase("text", "Hotkey_Doubled=1");
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
    CloseMenu();
}

TEST_F(Query, AKeyThatAnotherProgramOwnsLeavesTheServiceOffAndIsNamed) {
    ASSERT_TRUE(RegisterHotKey(nullptr, 7, MOD_CONTROL | MOD_ALT, VK_RETURN));
    StartWithPhrase("text");
    EXPECT_FALSE(OpenNamedEvent(kEventDataNeeded));
    EXPECT_EQ(program_.End(), 0U);
    UnregisterHotKey(nullptr, 7);
    EXPECT_EQ(CountInLog(u"ERROR: Cannot register hot key Ctrl+Alt+"), 1);
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
    StartWithPhrase("[%SELECTED_TEXT%]");
    const Notepad notepad;
    ASSERT_TRUE(notepad.BringToFront());
    const DWORD clipboard = GetClipboardSequenceNumber();
    Lay("<WPQuery POINT_X='300' POINT_Y='200'><HWND>" +
        std::to_string(reinterpret_cast<std::uintptr_t>(notepad.Edit())) +
        "</HWND><SelText StateSelText='2'>sel</SelText></WPQuery>");
    ASSERT_TRUE(WaitForMenu());
    RECT menu;
    ASSERT_TRUE(GetWindowRect(TopMenuWindow(), &menu));
    EXPECT_EQ(menu.left, 300);
    EXPECT_EQ(menu.top, 200);
    ChooseMenuItem(0);
    EXPECT_EQ(notepad.WaitForText(u"[sel]"), u"[sel]");
    EXPECT_EQ(GetClipboardSequenceNumber(), clipboard);
}

TEST_F(HookSide, WhatIsNoQueryIsAnsweredAtOnceAndOpensNothing) {
    StartWithPhrase("text");
    const UniqueHandle completed = OpenNamedEvent(kEventDataCompleted);
    Lay("<WPQue");
    EXPECT_EQ(WaitForSingleObject(completed.get(), kPatienceMs), WAIT_OBJECT_0);
    EXPECT_FALSE(IsMenuOpen());
}

}  // namespace
}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/clipboard_neighbour.h"
#include "desktop/driver/history.h"
#include "desktop/driver/keys_target.h"
#include "desktop/program_test.h"

namespace vbr::desktop {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::Le;
using testing::Pair;
using testing::SizeIs;

// The program among windows with the manners of those that people work in.
class TargetsTest : public ProgramTest {
  protected:
    static void Choose(KeysTarget& target) {
        ASSERT_TRUE(target.BringToFront());
        PressHotkey();
        ASSERT_TRUE(WaitForMenu());
        ChooseMenuItem(0);
    }
    static std::u16string Lines(int count) {
        std::u16string text;
        for (int i = 0; i < count; ++i) {
            text += u"A line of 20 letters";
        }
        return text;
    }
};

TEST_F(TargetsTest, APageThatObeysItsKeysAloneGivesItsSelectionUnderTheHeldHotKey) {
    StartWithPhrase("[%SELECTED_TEXT%|%CLIPBOARD_TEXT%]%CURSOR_POS%\xF0\x9F\x99\x82z");
    KeysTarget page({.Selected = u"selected"});
    Copier copier;
    copier.CopyText(u"mine");
    const ClipboardContent before = ReadClipboard();
    int steps = 0;
    for (const DWORD heldMs : {40, 170}) {
        SCOPED_TRACE(heldMs);
        ASSERT_TRUE(page.BringToFront());
        HoldKeys({std::begin(kHotkey), std::end(kHotkey)}, heldMs);
        ASSERT_TRUE(WaitForMenu());
        EXPECT_EQ(ReadClipboard(), before);
        ChooseMenuItem(0);
        steps += 2;  // an emoji is one
        ASSERT_TRUE(WaitUntil([&] { return page.CursorSteps() >= steps; }));
        ASSERT_TRUE(WaitUntilReady());
    }
    const std::u16string once = u"[selected|mine]🙂z";
    EXPECT_EQ(page.Text(), once + once);
    EXPECT_EQ(page.CursorSteps(), steps);
    EXPECT_THAT(page.Oddities(), IsEmpty());
    EXPECT_EQ(ReadClipboard(), before);
}

TEST_F(TargetsTest, ModifiersThatStayHeldAreLetGoForThePage) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    KeysTarget page({.Selected = u"selected"});
    ASSERT_TRUE(page.BringToFront());
    // The fingers lift the key, not the modifiers.
    PressKeys({});
    std::vector<INPUT> downs(3);
    for (std::size_t i = 0; i < 3; ++i) {
        downs[i].type = INPUT_KEYBOARD;
        downs[i].ki.wVk = kHotkey[i];
    }
    downs.push_back(downs.back());
    downs.back().ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(static_cast<UINT>(downs.size()), downs.data(), sizeof(INPUT));
    ASSERT_TRUE(WaitForMenu());
    ChooseMenuItem(0);
    EXPECT_EQ(page.WaitForText(u"[selected]"), u"[selected]");
    EXPECT_THAT(page.Oddities(), IsEmpty());
}

TEST_F(TargetsTest, ASlowReaderGetsEveryCharacter) {
    const std::u16string text = Lines(50);
    StartWithPhrase(Utf16ToUtf8(text));
    KeysTarget slow({.MsPerKey = 5});
    Choose(slow);
    EXPECT_EQ(slow.WaitForText(text), text);
}

TEST_F(TargetsTest, ATerminalIsNeverInterrupted) {
    StartWithPhrase("dir %SELECTED_TEXT%");
    KeysTarget terminal({.ClassName = L"mintty", .IsTerminal = true});
    Choose(terminal);
    EXPECT_EQ(terminal.WaitForText(u"dir "), u"dir ");
    EXPECT_EQ(terminal.Interrupts(), 0);
}

TEST_F(TargetsTest, ANeighbourAtTheClipboardCostsNoSelectionAndNoPaste) {
    StartWithPhrase("[%SELECTED_TEXT%]", "TextPasteMethod_v150=1\nRestoreClipboardAfterPaste=1");
    KeysTarget page({.Selected = u"selected"});
    const ClipboardNeighbour neighbour;
    Copier copier;
    copier.CopyText(u"mine");
    const ClipboardContent before = ReadClipboard();
    for (int round = 1; round <= 3; ++round) {
        Choose(page);
        ASSERT_TRUE(WaitUntil([&] { return page.Text().size() == 10U * round; }));
        ASSERT_TRUE(WaitUntilReady());
        EXPECT_TRUE(WaitUntil([&] { return ReadClipboard() == before; }));
    }
    EXPECT_EQ(page.Text(), u"[selected][selected][selected]");
}

TEST_F(TargetsTest, AnOwnerOfPromisesIsAskedForWhatIsNeededOnly) {
    StartWithPhrase("text");
    Copier owner;
    std::vector<UINT> formats = {CF_UNICODETEXT, RegisterClipboardFormatW(L"DataObject")};
    for (int i = 0; i < 18; ++i) {
        formats.push_back(RegisterClipboardFormatW((L"Promise " + std::to_wstring(i)).c_str()));
    }
    program_.End();
    Start("ClipboardHistory=0");
    owner.Promise(formats);
    // An edit control without a selection costs the clipboard nothing.
    const Notepad notepad;
    OpenMenu(notepad);
    CloseMenu();
    EXPECT_THAT(owner.Asked(), IsEmpty());
    // A page has to copy, and each promise is kept once.
    KeysTarget page({.Selected = u"selected"});
    ASSERT_TRUE(page.BringToFront());
    PressHotkey();
    ASSERT_TRUE(WaitForMenu());
    CloseMenu();
    EXPECT_THAT(owner.Asked(), SizeIs(19));
    EXPECT_THAT(owner.Asked(), Each(Pair(testing::_, Le(1))));
    EXPECT_EQ(ReadClipboard()[L"Promise 17"], std::string("a\0b\0c\0\0\0", 8));
}

TEST_F(TargetsTest, ATargetThatGoesAwayEndsTheTypingAndTheUseIsNotCounted) {
    StartWithPhrase(Utf16ToUtf8(Lines(50)));
    const Notepad other;
    KeysTarget target({.MsPerKey = 2, .OnCharacter = [](KeysTarget& self) {
                           if (self.Text().size() == 100) {
                               DestroyWindow(self.Window());
                           }
                       }});
    Choose(target);
    EXPECT_TRUE(WaitForLog(u"Not delivered: A line"));
    EXPECT_EQ(other.Text(), u"");
    EXPECT_NE(FileBytes(program_.Phrases() / "Only phrase.vellumbridge").find("UsageCount=\"0\""),
              std::string::npos);
}

}  // namespace
}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#include "exchange/selected_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/exchange_fixture.h"
#include "platform/clipboard_text.h"

namespace vbr {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr WindowHandle kTarget = 50;
constexpr const char* kMessage = "copy message to 50";

class SelectedTextTest : public testing::Test, protected ExchangeFixture {
  protected:
    SelectedTextTest() {
        Clipboard.Copy({FakeClipboardAccess::Text(u"mine")});
        Calls.clear();
    }
    std::u16string Extract() {
        const std::uint32_t start = Macros.Clock.Tick;
        Selection selection = Reader.ExtractSelectedText(kTarget);
        took_ = Macros.Clock.Tick - start;
        EXPECT_EQ(selection.State == kSelTextExtracted, !selection.Text.empty());
        return selection.Text;
    }
    std::u16string Kept() { return ReadUnicodeText(Clipboard); }

    std::uint32_t took_ = 0;  // of the clock
};

TEST_F(SelectedTextTest, TheTargetCopiesByItsKeysAndTheClipboardIsBackAtOnce) {
    LetTargetCopy(u"selected");
    Macros.Clock.WhileAsleep = [this] { EXPECT_TRUE(OwnCopy.IsMyCopy()); };
    EXPECT_EQ(Extract(), u"selected");
    EXPECT_EQ(Kept(), u"mine");
    EXPECT_TRUE(OwnCopy.IsOwnContent());
    EXPECT_FALSE(OwnCopy.IsMyCopy());
    EXPECT_THAT(Calls, Not(Contains(kMessage)));
    EXPECT_LE(took_, 10U);
    const std::vector<KeyEvent> keys = {{17, 117, 0}, {67, 167, 0}, {67, 167, 2}, {17, 117, 2}};
    EXPECT_EQ(Input.Keys(), keys);
}

TEST_F(SelectedTextTest, AnEmptyClipboardIsEmptyAgain) {
    Clipboard.Copy({});
    LetTargetCopy(u"selected");
    EXPECT_EQ(Extract(), u"selected");
    EXPECT_THAT(Clipboard.Blocks, IsEmpty());
}

TEST_F(SelectedTextTest, ATargetWithoutASelectionCostsAMomentAndNoClipboard) {
    const std::uint32_t sequence = Clipboard.Sequence;
    EXPECT_EQ(Extract(), u"");
    EXPECT_LE(took_, 200U);
    EXPECT_EQ(Clipboard.Sequence, sequence);
    // The most, where nobody can see when it has read the keys.
    Join.State = JoinState::Refused;
    Extract();
    EXPECT_LE(took_, 450U);
    EXPECT_GE(took_, 400U);
}

TEST_F(SelectedTextTest, ASlowTargetIsWaitedForUntilItsTextIsThere) {
    Macros.Clock.WhileAsleep = [this, copied = false]() mutable {
        if (!copied && Macros.Clock.Tick >= 120) {
            copied = true;
            Clipboard.Copy({FakeClipboardAccess::Text(u"late")});
        }
    };
    EXPECT_EQ(Extract(), u"late");
    EXPECT_EQ(Kept(), u"mine");
    EXPECT_LE(took_, 130U);
}

TEST_F(SelectedTextTest, AnEditControlIsAskedFirst) {
    for (const char16_t* edit :
         {u"Edit", u"RICHEDIT50W", u"WindowsForms10.EDIT.app.0.1", u"TMemo"}) {
        SCOPED_TRACE(Utf16ToUtf8(edit));
        Windows.Class = edit;
        Windows.Selected = false;
        Calls.clear();
        EXPECT_EQ(Reader.ExtractSelectedText(kTarget).State, kSelTextNone);
        EXPECT_THAT(Calls, IsEmpty());  // no clipboard, no keys
        // With a selection the message does it, past the keys that the user may hold.
        Windows.Selected = true;
        Windows.OnCopy = [this] { Clipboard.Copy({FakeClipboardAccess::Text(u"edited")}); };
        EXPECT_EQ(Extract(), u"edited");
        EXPECT_THAT(Input.Sent, IsEmpty());
        EXPECT_EQ(Kept(), u"mine");
    }
}

TEST_F(SelectedTextTest, TerminalsGetNoKeys) {
    TerminalClasses = u" ;My Terminal; other";
    for (const char16_t* terminal : {u"ConsoleWindowClass", u"mintty", u"PUTTY", u"my terminal"}) {
        Windows.Class = terminal;
        Calls.clear();
        Extract();
        EXPECT_THAT(Input.Sent, IsEmpty()) << Utf16ToUtf8(terminal);
        EXPECT_THAT(Calls, Contains(kMessage));
    }
    Windows.Class = u"terminal";
    Extract();
    EXPECT_FALSE(Input.Sent.empty());
}

TEST_F(SelectedTextTest, KeysHeldFromTheHotKeyDoNotReachTheTargetWithTheCopy) {
    LetTargetCopy(u"selected");
    // Fingers that leave in time.
    Input.Held = {kVkLeftControl, kVkLeftMenu, kVkReturn};
    Macros.Clock.WhileAsleep = [this] {
        if (Macros.Clock.Tick >= 80) {
            Input.Held.clear();
        }
    };
    EXPECT_EQ(Extract(), u"selected");
    EXPECT_EQ(Input.Keys().size(), 4U);
    // Modifiers that stay are let go.
    Macros.Clock.WhileAsleep = [] {};
    Input.Held = {kVkLeftControl, kVkLeftMenu};
    Input.OnSent = [this](const KeyEvent& event) {
        if (event.Vk == kVkC && (event.Flags & kKeyUp) == 0) {
            EXPECT_THAT(Input.Held, IsEmpty());
            Clipboard.Copy({FakeClipboardAccess::Text(u"again")});
        }
    };
    EXPECT_EQ(Extract(), u"again");
    // The key's repetition is the hot key again as long as its modifiers are down with it.
    Input.Held = {kVkLeftControl, kVkReturn};
    const std::uint32_t lifted = Macros.Clock.Tick + 500;
    Macros.Clock.WhileAsleep = [this, lifted] {
        if (Macros.Clock.Tick >= lifted) {
            Input.Held.erase(kVkReturn);
        } else {
            EXPECT_TRUE(Input.Held.contains(kVkLeftControl));
        }
    };
    EXPECT_EQ(Extract(), u"again");
    // Without them it would overwrite the selection.
    Macros.Clock.WhileAsleep = [] {};
    Input.Held = {kVkLeftControl, kVkReturn};
    Input.Sent.clear();
    EXPECT_EQ(Extract(), u"");
    EXPECT_THAT(Input.Sent, IsEmpty());
}

TEST_F(SelectedTextTest, ALineThatAnEditorCopiesWithoutASelectionIsNone) {
    const auto text = FakeClipboardAccess::Text(u"whole line\r\n");
    const std::u16string json = u"{\"version\":1,\"isFromEmptySelection\":true}";
    const std::string_view bytes(reinterpret_cast<const char*>(json.data()),
                                 json.size() * sizeof(char16_t));
    const std::u16string page = u"Chromium Web Custom MIME Data Format";
    const std::pair<ClipboardBlock, bool> cases[] = {
        {Clipboard.Named(u"MSDEVLineSelect", ""), true},
        {Clipboard.Named(u"VisualStudioEditorOperationsLineCutCopyClipboardTag", "1"), true},
        {Clipboard.Named(page, bytes), true},
        {Clipboard.Named(page, bytes.substr(0, bytes.size() - 4)), false},
        {Clipboard.Named(u"MSDEVColumnSelect", ""), false},
    };
    for (const auto& [mark, isNone] : cases) {
        LetTargetCopy({text, mark});
        EXPECT_EQ(Extract().empty(), isNone) << Utf16ToUtf8(mark.Name);
        EXPECT_EQ(Kept(), u"mine");
    }
}

TEST_F(SelectedTextTest, WhatCannotBeGivenBackIsNotRisked) {
    LetTargetCopy(u"selected");
    const std::tuple<const char*, std::function<void()>> cases[] = {
        {"in use", [this] { Clipboard.FailingOpens = FakeClipboardAccess::kAlways; }},
        {"a hung owner", [this] { Clipboard.ReadsUntilOwnerHangs = 0; }},
        {"files that only their owner has",
         [this] { Clipboard.Copy({Clipboard.Named(u"FileContents", "")}); }},
    };
    for (const auto& [name, prepare] : cases) {
        SCOPED_TRACE(name);
        Clipboard.FailingOpens = 0;
        prepare();
        const std::uint32_t sequence = Clipboard.Sequence;
        EXPECT_EQ(Extract(), u"");
        EXPECT_THAT(Input.Sent, IsEmpty());
        EXPECT_EQ(Clipboard.Sequence, sequence);
    }
}

TEST_F(SelectedTextTest, WhatANeighbourKeepsFromGoingBackWaits) {
    Input.OnSent = [this](const KeyEvent& event) {
        if (event.Vk == kVkC && (event.Flags & kKeyUp) == 0) {
            Clipboard.Copy({FakeClipboardAccess::Text(u"selected")});
            Clipboard.FailingOpens = 1;
        }
    };
    EXPECT_EQ(Extract(), u"");
    EXPECT_EQ(Kept(), u"selected");
    EXPECT_EQ(Snapshot.Text(), u"mine");
    Reader.TakeBackLateCopy();
    EXPECT_EQ(Kept(), u"mine");
}

TEST_F(SelectedTextTest, ACopyThatComesTooLateIsTakenBackFromItsTargetAlone) {
    for (const std::uint32_t owner : {52U, 99U}) {
        Clipboard.Copy({FakeClipboardAccess::Text(u"mine")});
        EXPECT_EQ(Extract(), u"");
        Clipboard.Copy({FakeClipboardAccess::Text(u"late")});
        Clipboard.Owner = owner;
        EXPECT_EQ(OwnCopy.IsOwnContent(), owner == 52U);
        Reader.TakeBackLateCopy();
        EXPECT_EQ(Kept(), owner == 52U ? u"mine" : u"late");
        // From now on it is the user who copies there.
        Clipboard.Copy({FakeClipboardAccess::Text(u"theirs")});
        Clipboard.Owner = owner;
        EXPECT_FALSE(OwnCopy.IsOwnContent());
    }
}

TEST_F(SelectedTextTest, ATargetThatFillsTheClipboardAtASecondTryFindsItClosed) {
    LetTargetCopy(std::vector<ClipboardBlock>());
    Macros.Clock.WhileAsleep = [this] {
        if (Clipboard.Blocks.empty()) {
            EXPECT_FALSE(Clipboard.IsOpen());
            Clipboard.Copy({FakeClipboardAccess::Text(u"filled")});
        }
    };
    EXPECT_EQ(Extract(), u"filled");
    EXPECT_EQ(Kept(), u"mine");
}

TEST_F(SelectedTextTest, TextThatATargetCopiesWithoutUnicodeCountsToo) {
    LetTargetCopy({FakeClipboardAccess::Memory(kClipText, std::string_view("ansi\0x", 6))});
    EXPECT_EQ(Extract(), u"ansi");
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "macros/text_delivery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_fixture.h"
#include "macros/clipboard_forms.h"
#include "macros/key_events.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Le;
using testing::SizeIs;

using Events = std::vector<KeyEvent>;

constexpr WindowHandle kTarget = 7;
const Events kPasteKeys = {{17, 117, 0}, {86, 186, 0}, {86, 186, 2}, {17, 117, 2}};

class TextDeliveryTest : public testing::Test, protected DeliveryFixture {
  protected:
    // After so many more pieces.
    void WhenSent(std::size_t pieces, std::function<void()> happens) {
        const std::size_t calls = Input.Sent.size() + pieces + 1;  // the first one is a mark
        Input.OnSent = [this, calls, happens](auto&) {
            if (Input.Sent.size() == calls) {
                happens();
            }
        };
    }
};

TEST_F(TextDeliveryTest, TypedTextIsUnicodePairsAndRealKeys) {
    const Events expected = {
        {0, 0xD83D, 4}, {0, 0xD83D, 6}, {0, 0xDE42, 4}, {0, 0xDE42, 6},  // a pair
        {13, 113, 0},   {13, 113, 2},   {10, 110, 0},   {10, 110, 2},    // CR LF
        {9, 109, 0},    {9, 109, 2},    {0, u'a', 4},   {0, u'a', 6},    // TAB, a
        {0, 0xDC00, 4}, {0, 0xDC00, 6}, {0, 8, 4},      {0, 8, 6}};      // lone, control
    EXPECT_EQ(PrintEvents(u"🙂\r\n\ta" + std::u16string{0xDC00, 8}, Input), expected);
}

TEST(PasteSettings, ChooseTheWayByMethodAndLength) {
    const std::tuple<PasteSettings, std::size_t, bool> cases[] = {
        {{0, 100}, 1000000, true}, {{1, 100}, 0, false},   {{2, 100}, 99, true},
        {{2, 100}, 100, false},    {{2, 1000}, 999, true}, {{2, 1}, 0, true},
    };
    for (const auto& [settings, units, typed] : cases) {
        EXPECT_EQ(IsTyped(settings, units), typed) << settings.Method << " " << units;
    }
}

TEST_F(TextDeliveryTest, ASlowTargetIsGivenOnePieceAtATime) {
    Input.MsPerEvent = 5;
    std::u16string text;
    for (int i = 0; i < 50; ++i) {
        text += u"🙂ab\r\n";
    }
    EXPECT_EQ(Text.PrintText(kTarget, text), std::nullopt);
    EXPECT_THAT(Input.MostUnread, Le(2 * kPieceLength + 3));  // with the marks
    std::u16string typed;
    for (const KeyEvent& event : Input.Keys()) {
        if ((event.Flags & kKeyUp) == 0) {
            typed += static_cast<char16_t>(event.Vk != 0 ? event.Vk : event.Scan);
        }
    }
    EXPECT_EQ(typed, text);
    for (const Events& sent : Input.Sent) {
        EXPECT_NE(sent.front().Scan, 0xDE42);  // no pair and no line end is halved
        EXPECT_NE(sent.front().Vk, u'\n');
    }
}

TEST_F(TextDeliveryTest, WhatTheSystemLeftOverGoesInFurtherCalls) {
    Input.MostPerCall = 5;
    EXPECT_EQ(Text.PrintText(kTarget, u"abcdef"), std::nullopt);
    EXPECT_EQ(Typed(), u"abcdef");
    EXPECT_TRUE(Told(u"took 10 of 14"));
}

TEST_F(TextDeliveryTest, NothingIsTypedAnyMoreOnceTheTargetIsLost) {
    const std::u16string text(100, u'x');
    const std::tuple<const char*, std::function<void()>, DeliveryFailure> cases[] = {
        {"closed", [this] { Targets.Gone = {kTarget}; }, DeliveryFailure::TargetGone},
        {"behind", [this] { Targets.Behind = {kTarget}; }, DeliveryFailure::NotInFront},
        {"no input", [this] { Input.MostPerCall = 0; }, DeliveryFailure::NotTaken},
        {"stuck", [this] { Input.MsPerEvent = 1'000; }, DeliveryFailure::NotRead},
    };
    for (const auto& [name, happens, failure] : cases) {
        SCOPED_TRACE(name);
        Input.Sent.clear();
        WhenSent(1, happens);
        EXPECT_EQ(Text.PrintText(kTarget, text), failure);
        EXPECT_THAT(Typed(), SizeIs(Le(2 * kPieceLength)));
        Targets.Gone = {0};
        Targets.Behind = {};
        Input.MostPerCall = 1000;
        Input.MsPerEvent = 0;
    }
    // Before the first key, which a paste's clipboard must not precede.
    Input.Sent.clear();
    Targets.Behind = {kTarget};
    EXPECT_EQ(Text.PrintText(kTarget, text), DeliveryFailure::NotInFront);
    EXPECT_EQ(Text.PasteText(kTarget, text), DeliveryFailure::NotInFront);
    Targets.Behind = {};
    Join.State = JoinState::Hung;
    EXPECT_EQ(Text.PrintText(kTarget, text), DeliveryFailure::NotRead);
    EXPECT_EQ(Text.PasteText(kTarget, text), DeliveryFailure::NotRead);
    EXPECT_THAT(Input.Sent, IsEmpty());
    EXPECT_THAT(Clipboard.Blocks, IsEmpty());
}

TEST_F(TextDeliveryTest, KeysThatBringAnotherProgramToTheFrontHaveArrived) {
    WhenSent(1, [this] { Targets.Behind = {kTarget}; });
    EXPECT_EQ(Text.PrintText(kTarget, u"calc\r"), std::nullopt);
}

TEST_F(TextDeliveryTest, ATargetWhoseReadingCannotBeSeenGetsAllOfItByTime) {
    const std::u16string text(100, u'x');
    Join.State = JoinState::Refused;
    EXPECT_EQ(Text.PrintText(kTarget, text), std::nullopt);
    EXPECT_EQ(Typed(), text);
    EXPECT_EQ(Input.Keys().size(), 2 * text.size());
    // One that reads its keys in another thread than that of its window.
    Input.Sent.clear();
    Join.State = JoinState::Joined;
    Input.MsPerEvent = 1'000'000;
    EXPECT_EQ(Text.PrintText(kTarget, text), std::nullopt);
    EXPECT_EQ(Typed(), text);
}

TEST_F(TextDeliveryTest, KeysThatTheUserHoldsAreWaitedForAndThenLetGoWithoutOpeningAMenu) {
    Input.Held = {kVkLeftWin};
    Macros.Clock.WhileAsleep = [this] {
        if (Macros.Clock.Tick >= 100) {
            Input.Held.clear();
        }
    };
    EXPECT_EQ(Text.PrintText(kTarget, u"a"), std::nullopt);
    EXPECT_THAT(Input.Keys(), SizeIs(2));
    Input.Sent.clear();
    Macros.Clock.WhileAsleep = [] {};
    Input.Held = {kVkLeftMenu, kVkRightControl};
    EXPECT_EQ(Text.PrintText(kTarget, u"b"), std::nullopt);
    // Of a key alone that goes up, Windows would make a menu.
    const Events letGo = {{kVkUnassigned3},
                          {kVkUnassigned3, 0, 2},
                          {kVkRightControl, kVkRightControl + 100, 3},
                          {kVkLeftMenu, kVkLeftMenu + 100, 2}};
    EXPECT_EQ(Input.Sent.at(1), letGo);
}

TEST_F(TextDeliveryTest, APastePutsTheTextWithItsTerminatorAndLetsTheTargetFetchIt) {
    Macros.Clock.WhileAsleep = [this] {
        EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes,
                  FakeClipboardAccess::Text(u"é\xDC00").Bytes);
    };
    EXPECT_EQ(Text.PasteText(kTarget, u"é\xDC00"), std::nullopt);
    EXPECT_EQ(OnClipboard(16), std::string("\x09\x08\0\0", 4));
    EXPECT_EQ(Input.Keys(), kPasteKeys);
    EXPECT_THAT(Macros.Clock.Sleeps, ElementsAre(100));
}

TEST_F(TextDeliveryTest, AnEmptyTextIsPastedAndNotTyped) {
    EXPECT_EQ(Text.PrintText(kTarget, u""), std::nullopt);
    EXPECT_THAT(Input.Sent, IsEmpty());
    EXPECT_EQ(Text.PasteText(kTarget, u""), std::nullopt);
    EXPECT_EQ(OnClipboard(kClipUnicodeText), std::string(2, '\0'));
    EXPECT_EQ(Input.Keys(), kPasteKeys);
}

TEST_F(TextDeliveryTest, TheClipboardComesBackAfterPastesWhenTheUserWantsThat) {
    const ClipboardBlock mine = FakeClipboardAccess::Text(u"mine");
    for (const bool restores : {false, true}) {
        Clipboard.Copy({mine});
        Paste.RestoresClipboard = restores;
        Text.PasteText(kTarget, u"one");
        EXPECT_EQ(Clipboard.IsMarked(), restores);  // what goes again is for no history
        Text.PasteRich(kTarget, u"{two}", 0);
        EXPECT_EQ(Clipboard.IsMarked(), restores);
        Text.EndPastes();
        EXPECT_EQ(Clipboard.Blocks[0].Bytes == mine.Bytes, restores);
    }
    // Where nobody can tell when the text is fetched, it stays for that.
    Join.State = JoinState::Refused;
    Clipboard.Copy({mine});
    Text.PasteText(kTarget, u"one");
    Text.EndPastes();
    EXPECT_NE(Clipboard.Blocks[0].Bytes, mine.Bytes);
    Join.State = JoinState::Joined;
    // What couldn't be put aside at first is not the program's own text later.
    Clipboard.Copy({Clipboard.Named(u"FileContents", "")});
    Text.PasteText(kTarget, u"one");
    Text.PasteText(kTarget, u"two");
    Text.EndPastes();
    EXPECT_EQ(Clipboard.Blocks[0].Bytes, FakeClipboardAccess::Text(u"two").Bytes);
    // What the user copies meanwhile stays.
    Text.PasteText(kTarget, u"one");
    Macros.Clock.WhileAsleep = [&] { Clipboard.Copy({FakeClipboardAccess::Text(u"newer")}); };
    Text.EndPastes();
    EXPECT_EQ(Clipboard.Blocks[0].Bytes, FakeClipboardAccess::Text(u"newer").Bytes);
}

TEST_F(TextDeliveryTest, RichTextGoesAsEightBitsWithItsPlainTextAndLanguage) {
    EXPECT_EQ(Text.PasteRich(kTarget, u"{é\u0416}", kRussian), std::nullopt);
    const std::uint32_t rich = Clipboard.RegisterFormat(kRichTextFormat);
    EXPECT_EQ(OnClipboard(rich), std::string("{\\'e9{\\uc1\\u1046?}}") + '\0');
    EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes, FakeClipboardAccess::Text(u"é\u0416").Bytes);
    EXPECT_EQ(OnClipboard(16), std::string("\x19\x04\0\0", 4));
    EXPECT_EQ(Text.PasteRich(kTarget, u"no source", 0), std::nullopt);
    ASSERT_THAT(Clipboard.Blocks, SizeIs(1));
    EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes,
              FakeClipboardAccess::Text(u"no source").Bytes);
}

TEST_F(TextDeliveryTest, WhileTheClipboardIsHeldNothingIsPasted) {
    Clipboard.FailingOpens = FakeClipboardAccess::kAlways;
    EXPECT_EQ(Text.PasteText(kTarget, u"x"), DeliveryFailure::ClipboardInUse);
    EXPECT_EQ(Text.PasteRich(kTarget, u"{x}", 0), DeliveryFailure::ClipboardInUse);
    EXPECT_THAT(Input.Keys(), IsEmpty());
}

}  // namespace
}  // namespace vbr

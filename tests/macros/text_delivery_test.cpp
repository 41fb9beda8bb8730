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
using testing::SizeIs;

using Events = std::vector<KeyEvent>;

const Events kPasteKeys = {{17, 117, 0, 0}, {86, 186, 0, 0}, {86, 186, 2, 0}, {17, 117, 2, 0}};

class TextDeliveryTest : public testing::Test, protected DeliveryFixture {};

TEST(PrintEvents, AreUnicodePairsRealKeysAndCursorSteps) {
    const Events expected = {
        {0, 0xD83D, 4, 0}, {0, 0xD83D, 6, 0}, {0, 0xDE42, 4, 0}, {0, 0xDE42, 6, 0},  // a pair
        {13, 113, 0, 400}, {13, 113, 2, 400}, {10, 110, 0, 400}, {10, 110, 2, 400},  // CR LF
        {9, 109, 0, 400},  {9, 109, 2, 400},  {0, u'a', 4, 0},   {0, u'a', 6, 0},    // TAB, a
        {0, 0xDC00, 4, 0}, {0, 0xDC00, 6, 0}, {0, 8, 4, 0},      {0, 8, 6, 0},    // lone, control
        {16, 0, 2, 0},                                                            // shift up
        {37, 0, 0, 0},     {37, 0, 2, 0},     {37, 0, 0, 0},     {37, 0, 2, 0}};  // left
    const std::u16string text = u"🙂\r\n\ta" + std::u16string{0xDC00, 8};
    EXPECT_EQ(PrintEvents(text, 2, RecordingInput()), expected);
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

TEST_F(TextDeliveryTest, WhatTheSystemLeftOverGoesInFurtherCalls) {
    Input.MostPerCall = 5;
    EXPECT_TRUE(Text.PrintText(u"abcdef", 0));
    EXPECT_THAT(Input.Sent, ElementsAre(SizeIs(1), SizeIs(5), SizeIs(5), SizeIs(2)));
    EXPECT_EQ(Typed(), u"abcdef");
    EXPECT_TRUE(Told(u"took 10 of 12"));
}

TEST_F(TextDeliveryTest, ACallThatTakesNothingEndsTheDeliveryAndIsTold) {
    Input.MostPerCall = 0;
    EXPECT_FALSE(Text.PrintText(u"ab", 0));
    EXPECT_THAT(Input.Sent, SizeIs(1));
    EXPECT_TRUE(Told(u"not sent: 1 of 1"));
}

TEST_F(TextDeliveryTest, KeysThatTheUserHoldsAreWaitedForASecondAtMost) {
    Input.Held = {kVkLeftWin};
    Macros.Clock.WhileAsleep = [this] {
        if (Macros.Clock.Tick >= 300) {
            Input.Held.clear();
        }
    };
    Text.PrintText(u"a", 0);
    EXPECT_EQ(Macros.Clock.Tick, 300U);
    EXPECT_THAT(Macros.Log.Lines, IsEmpty());
    Input.Held = {kVkShift};
    Macros.Clock.WhileAsleep = [] {};
    Text.PrintText(u"b", 0);
    EXPECT_EQ(Macros.Clock.Tick, 1300U);
    EXPECT_EQ(Typed(), u"ab");
    EXPECT_TRUE(Told(u"still held"));
}

TEST_F(TextDeliveryTest, APastePutsTheTextWithItsTerminatorAndPressesTheKeysLater) {
    std::vector<std::size_t> sentWhenAsleep;
    Macros.Clock.WhileAsleep = [&] { sentWhenAsleep.push_back(Input.Sent.size()); };
    Input.States = {kVkMenu, kVkShift};
    EXPECT_TRUE(Text.PasteText(u"é\xDC00", 2));
    ASSERT_THAT(Clipboard.Blocks, SizeIs(2));
    EXPECT_EQ(Clipboard.Blocks[0].Bytes, FakeClipboardAccess::Text(u"é\xDC00").Bytes);
    EXPECT_EQ(OnClipboard(16), std::string("\x09\x08\0\0", 4));
    EXPECT_THAT(sentWhenAsleep, ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(Macros.Clock.Sleeps, ElementsAre(400, 100, 1, 1));
    Events first = {{16, 116, 2, 0}, {18, 118, 2, 0}};
    first.insert(first.end(), kPasteKeys.begin(), kPasteKeys.end());
    EXPECT_THAT(Input.Sent, ElementsAre(first, CursorEvents(1), CursorEvents(1)));
}

TEST_F(TextDeliveryTest, AnEmptyTextIsPastedAndNotTyped) {
    EXPECT_FALSE(Text.PrintText(u"", 3));
    EXPECT_THAT(Input.Sent, IsEmpty());
    EXPECT_TRUE(Text.PasteText(u"", 0));
    EXPECT_EQ(OnClipboard(kClipUnicodeText), std::string(2, '\0'));
    EXPECT_THAT(Input.Sent, ElementsAre(kPasteKeys));
}

TEST_F(TextDeliveryTest, CursorStepsOfAPasteComeInPortions) {
    // Steps, portions and waits.
    const std::array<std::size_t, 3> cases[] = {{0, 0, 0},       {3, 3, 3},       {4, 2, 2},
                                                {5, 3, 2},       {11, 3, 2},      {100, 25, 25},
                                                {101, 101, 101}, {1009, 101, 100}};
    for (const auto& [steps, portions, waits] : cases) {
        Input.Sent.clear();
        Macros.Clock.Sleeps.clear();
        EXPECT_TRUE(Text.SendPasteKeys(steps));
        std::size_t events = 0;
        for (const Events& sent : Input.Sent) {
            events += sent.size();
        }
        EXPECT_EQ(events, kPasteKeys.size() + 2 * steps) << steps;
        EXPECT_EQ(Input.Sent.size(), 1 + portions) << steps;
        EXPECT_EQ(Macros.Clock.Sleeps.size(), 1 + waits) << steps;
    }
}

TEST_F(TextDeliveryTest, RichTextGoesAsEightBitsWithItsPlainTextAndLanguage) {
    EXPECT_TRUE(Text.PasteRich(u"{é\u0416}", 0, kRussian));
    const std::uint32_t rich = Clipboard.RegisterFormat(kRichTextFormat);
    EXPECT_EQ(OnClipboard(rich), std::string("{{\\uc1\\u233?\\u1046?}}") + '\0');
    EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes, FakeClipboardAccess::Text(u"é\u0416").Bytes);
    EXPECT_EQ(OnClipboard(16), std::string("\x19\x04\0\0", 4));
    EXPECT_TRUE(Text.PasteRich(u"no source", 0, 0));
    EXPECT_THAT(Clipboard.Blocks, SizeIs(1));
}

TEST_F(TextDeliveryTest, WhileTheClipboardIsHeldNothingIsPasted) {
    Clipboard.FailingOpens = FakeClipboardAccess::kAlways;
    EXPECT_FALSE(Text.PasteText(u"x", 0));
    EXPECT_FALSE(Text.PasteRich(u"{x}", 0, 0));
    EXPECT_THAT(Input.Sent, IsEmpty());
}

}  // namespace
}  // namespace vbr

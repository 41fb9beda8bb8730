// SPDX-License-Identifier: MIT
#include "macros/prompt_dialog.h"

#include <gtest/gtest.h>

namespace vbr {
namespace {

TEST(Prompt, TitleTellsTheTargetInAHundredCharacters) {
    EXPECT_EQ(PromptTitle(u"V", u""), u"V");
    EXPECT_EQ(PromptTitle(u"V", u"Letter"), u"V - [Letter]");
    EXPECT_EQ(PromptTitle(u"V", std::u16string(101, u'x')),
              u"V - [" + std::u16string(100, u'x') + u"]");
}

TEST(Prompt, AnswerIsWhatWasTypedOrTheDefault) {
    EXPECT_EQ(PromptAnswer(u"default", true, u"typed"), u"typed");
    EXPECT_EQ(PromptAnswer(u"default", true, u""), u"default");
    EXPECT_EQ(PromptAnswer(u"", true, u""), u"");
    EXPECT_EQ(PromptAnswer(u"two\r\nlines", false, u"two"), u"two\r\nlines");
}

TEST(Prompt, StandsUnderTheCaretAndWithinTheScreen) {
    const Rect work{-100, 0, 1000, 700};
    const Rect target{200, 100, 600, 300};
    const struct {
        std::optional<Rect> Caret;
        Rect Place;
    } cases[] = {
        {Rect{50, 80, 51, 96}, {50, 96, 350, 196}},
        {Rect{50, 680, 51, 696}, {50, 580, 350, 680}},   // above it at the bottom
        {Rect{990, 80, 991, 96}, {700, 96, 1000, 196}},  // at the right edge
        {Rect{-500, -40, -499, -24}, {-100, 0, 200, 100}},
        {std::nullopt, {250, 150, 550, 250}},
    };
    for (const auto& c : cases) {
        const Rect place = PlacePrompt({300, 100}, {c.Caret, target, work});
        EXPECT_EQ(place, c.Place) << place.Left << ", " << place.Top;
    }
    EXPECT_EQ(PlacePrompt({2000, 900}, {std::nullopt, target, work}).Left, -100);
}

}  // namespace
}  // namespace vbr

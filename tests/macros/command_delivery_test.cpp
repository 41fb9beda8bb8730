// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_fixture.h"
#include "macros/clipboard_forms.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandDeliveryTest : public testing::Test, protected DeliveryFixture {
  protected:
    std::filesystem::path File() const { return Phrases.Folder.Path() / "p.vellumbridge"; }
    // Whether all of it arrived.
    bool Deliver(const DeliveryContext& context = {
                     .ClipboardText = u"c", .SelText = u"s", .Language = kEnglish}) {
        lost_ = Delivery.DeliverPhrase(File(), 7, context);
        return !lost_;
    }
    int Uses() const { return Phrases.Tree.FindCommand(1)->UsageCount; }

    std::optional<UndeliveredText> lost_;
};

TEST_F(CommandDeliveryTest, AFileThatIsNoPhraseOfTheTreeIsNotDelivered) {
    Phrases.Add("group/p.vellumbridge", u"text");
    for (const char* name : {"group", "p.vellumbridge"}) {
        Delivery.DeliverPhrase(Phrases.Folder.Path() / name, 7, {});
    }
    Delivery.DeliverPhrase({}, 7, {});
    EXPECT_THAT(Input.Sent, IsEmpty());
}

TEST_F(CommandDeliveryTest, HistoryItemsGoOutAndStayOnTheClipboardAsTheyStand) {
    const DeliveryContext context{.SelText = u"s", .Language = kEnglish};
    const std::u16string text = u"t%SELECTED_TEXT%%PROMPT_TEXT={}%%CURSOR_POS%%ACTIVATE_KL_RU%";
    Delivery.DeliverClip({kDataTypeText, text}, 7, context);
    EXPECT_EQ(Typed(), text);
    EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes, FakeClipboardAccess::Text(text).Bytes);
    Delivery.DeliverClip({kDataTypeRtf, u"{r%SELECTED_TEXT%}"}, 7, context);
    const std::uint32_t rich = Clipboard.RegisterFormat(kRichTextFormat);
    EXPECT_EQ(OnClipboard(rich), std::string("{r%SELECTED_TEXT%}") + '\0');
}

TEST_F(CommandDeliveryTest, PromptsComeInOrderBetweenTextsThatAreAllExpandedBefore) {
    Phrases.Add("p.vellumbridge",
                u"a%SELECTED_TEXT%%PROMPT_TEXT={%DATE%}%b%TIME%%PROMPT_TEXT={}%c");
    Macros.Clock.Local.Second = 1;
    Prompts.WhileOpen = [this] {
        Macros.Clock.Local.Second = 2;
        EXPECT_FALSE(OwnCopy.IsMyCopy());  // what the user copies now is his
    };
    Prompts.Answers = {u"%x%", std::nullopt};
    EXPECT_TRUE(Deliver());
    EXPECT_EQ(Typed(), u"as%x%b0:0:1c");
    EXPECT_THAT(Prompts.Defaults, ElementsAre(u"%DATE%", u""));
    Calls.erase(std::unique(Calls.begin(), Calls.end()), Calls.end());
    EXPECT_THAT(Calls, ElementsAre("keys", "prompt", "keys", "prompt", "keys"));
    EXPECT_EQ(Uses(), 1);
}

TEST_F(CommandDeliveryTest, PromptsOfAFormattedPhraseComeBetweenItsSources) {
    Phrases.Add("p.vellumbridge", u"{\\1a%SELECTED_TEXT%%PROMPT_TEXT=\\{x\\}%b}", kDataTypeRtf);
    const std::uint32_t rich = Clipboard.RegisterFormat(kRichTextFormat);
    Prompts.WhileOpen = [&] { EXPECT_EQ(OnClipboard(rich), std::string("{\\1as}") + '\0'); };
    Prompts.Answers = {u"typed"};
    EXPECT_TRUE(Deliver());
    EXPECT_THAT(Prompts.Defaults, ElementsAre(u"x"));
    EXPECT_EQ(Typed(), u"typed");
    EXPECT_EQ(OnClipboard(rich), std::string("{\\1b}") + '\0');
    EXPECT_EQ(Delivery.TextOf(*Phrases.Tree.FindCommand(1), {.SelText = u"s"}), u"{\\1asxb}");
}

TEST_F(CommandDeliveryTest, AFormattedPhraseThatIsBrokenGoesOutAsItsTextAndIsTold) {
    Phrases.Add("p.vellumbridge", u"{\\rtf1\\b a%SELECTED_TEXT%\\par %PROMPT_TEXT=\\{x\\}%",
                kDataTypeRtf);
    Prompts.Answers = {u"y"};
    EXPECT_TRUE(Deliver());
    EXPECT_EQ(Typed(), u"asy");
    EXPECT_TRUE(Told(u"[p]"));
    EXPECT_EQ(Delivery.TextOf(*Phrases.Tree.FindCommand(1), {.SelText = u"s"}), u"as\r\nx");
}

TEST_F(CommandDeliveryTest, AnEmptyAnswerTouchesNothingOnTheClipboard) {
    Paste.Method = 1;
    Phrases.Add("p.vellumbridge", u"%PROMPT_TEXT={}%");
    Prompts.Answers = {u""};
    Deliver();
    EXPECT_THAT(Clipboard.Blocks, IsEmpty());
    EXPECT_THAT(Input.Sent, IsEmpty());
}

TEST_F(CommandDeliveryTest, PhrasesReadAgainUnderAPromptDoNotCountForAnother) {
    Phrases.Add("p.vellumbridge", u"%PROMPT_TEXT={x}%");
    Prompts.WhileOpen = [this] {
        Phrases.Folder.Write("other.vellumbridge", Phrases.Folder.Read("p.vellumbridge"));
        std::filesystem::remove(Phrases.Folder.Path() / "p.vellumbridge");
        Phrases.Tree.LoadTree(Phrases.Folder.Path());
    };
    Prompts.Answers = {u"typed"};
    EXPECT_TRUE(Deliver());
    EXPECT_EQ(Typed(), u"typed");
    EXPECT_EQ(Uses(), 0);
}

TEST_F(CommandDeliveryTest, CommandsGetTheSelectionAsOneLineAndPromptsGoToTheTarget) {
    Phrases.Add("p.vellumbridge", u"https://x/?q=%SELECTED_TEXT%%CURSOR_POS%%PROMPT_TEXT={d}%",
                kDataTypeExec);
    Prompts.Answers = {u"answer"};
    EXPECT_TRUE(Deliver({.ClipboardText = u"", .SelText = u"a\r\nb"}));
    EXPECT_THAT(Starter.Started, ElementsAre(u"[https://x/?q=a%20b][]"));
    EXPECT_EQ(Typed(), u"answer");
    EXPECT_THAT(Heard(), testing::Each("launch.wav"));
}

TEST_F(CommandDeliveryTest, TheLayoutIsSwitchedWhenAnInstalledOneIsAskedFor) {
    const std::tuple<std::u16string_view, Lcid, bool, bool> cases[] = {
        {u"%ACTIVATE_KL_RU%x", kEnglish, true, true},
        {u"%ACTIVATE_KL_RU%x", kRussian, true, false},
        {u"%ACTIVATE_KL_RU%x", kEnglish, false, false},  // it may not
        {u"%ACTIVATE_KL_DE%x", kEnglish, true, false},
    };
    Macros.Layouts.Languages = {kEnglish, kRussian};
    for (const auto& [text, language, maySwitch, switches] : cases) {
        Input.Sent.clear();
        Phrases.Add("p.vellumbridge", text);
        Deliver({u"", u"", language, maySwitch});
        EXPECT_EQ(Input.Keys().front().Vk == kVkLeftMenu, switches) << Utf16ToUtf8(text);
    }
}

TEST_F(CommandDeliveryTest, TheCursorGoesToTheFirstMarkWhenAllIsThere) {
    Phrases.Add("p.vellumbridge", u"a%CURSOR_POS%b%PROMPT_TEXT={}%c%CURSOR_POS%\r\nd");
    Prompts.Answers = {u"xy"};
    EXPECT_TRUE(Deliver());
    const std::vector<KeyEvent> keys = Input.Keys();
    const auto first = std::ranges::find(keys, kVkLeft, &KeyEvent::Vk);
    EXPECT_EQ(std::ranges::count(keys, kVkLeft, &KeyEvent::Vk), 2 * 6);
    EXPECT_EQ(keys.end() - first, 2 * 6);  // the last ones
}

TEST_F(CommandDeliveryTest, WhatDoesNotArriveIsToldAndNotCounted) {
    Phrases.Add("p.vellumbridge", u"first%PROMPT_TEXT={}%x");
    const std::tuple<std::function<void()>, DeliveryFailure> cases[] = {
        {[this] { Targets.Elevated = {7}; }, DeliveryFailure::TargetElevated},
        {[this] { Targets.Gone = {7}; }, DeliveryFailure::TargetGone},
        {[this] { Targets.Behind = {7}; }, DeliveryFailure::NotInFront},
        {[this] {
             Paste.Method = 1;
             Clipboard.FailingOpens = FakeClipboardAccess::kAlways;
         },
         DeliveryFailure::ClipboardInUse},
    };
    for (const auto& [prepare, failure] : cases) {
        Targets.Gone = Targets.Elevated = Targets.Behind = {};
        Prompts.Answers = {std::nullopt};
        prepare();
        EXPECT_FALSE(Deliver());
        EXPECT_EQ(lost_->Why, failure);
        EXPECT_EQ(lost_->Text, u"first");
        EXPECT_EQ(Typed(), u"");
    }
    EXPECT_EQ(Uses(), 0);
}

}  // namespace
}  // namespace vbr

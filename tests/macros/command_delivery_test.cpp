// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_desk.h"
#include "macros/clipboard_forms.h"
#include "macros/key_events.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Delivery : public testing::Test {
  protected:
    DeliverResult Deliver(std::uint32_t id, const DeliveryContext& context) {
        return desk_.Delivery.DeliverCommand(id, 7, context);
    }
    DeliverResult Deliver(std::uint32_t id) {
        return Deliver(id, {.ClipboardText = u"c", .SelText = u"s", .Language = kEnglish});
    }
    int Uses() const { return desk_.Phrases.Tree.FindCommand(1)->UsageCount; }

    DeliveryDesk desk_;
    PhraseTree& phrases_ = desk_.Phrases;
};

TEST_F(Delivery, TypesTheExpandedPhraseAndSavesOneMoreUse) {
    phrases_.Clock.Utc = {.Year = 2025, .Month = 3, .Day = 5};
    phrases_.Add("p.vellumbridge", u"%ACTIVATE_KL_EN%%CLIPBOARD_TEXT%%CURSOR_POS%%SELECTED_TEXT%");
    EXPECT_EQ(Deliver(1, {u"c", u"s", kEnglish, false}), DeliverResult::Phrase);
    EXPECT_THAT(desk_.Input.Sent, ElementsAre(ElementsAre(KeyEvent{17, 0, 2, 0}),
                                              PrintEvents(u"cs", 1, desk_.Input)));
    EXPECT_THAT(desk_.Calls,
                ElementsAre("sound 0", "own copy begins", "keys", "keys", "own copy ends"));
    phrases_.Saver.Flush();
    VBRCommand saved;
    ParseCommand(saved, phrases_.Folder.Read("p.vellumbridge"));
    EXPECT_EQ(saved.UsageCount, 1);
    EXPECT_EQ(saved.DateUsage, phrases_.Clock.Utc);
}

TEST_F(Delivery, AnIdThatNothingAnswersToGivesTheClipboardBack) {
    phrases_.Add("group/p.vellumbridge", u"text");
    ASSERT_TRUE(phrases_.Tree.FindCommand(1)->IsGroup());
    for (const std::uint32_t id : {0U, 1U, 3U, 1999U, 2000U}) {
        EXPECT_EQ(Deliver(id), DeliverResult::Nothing) << id;
    }
    EXPECT_EQ(desk_.Calls, Journal(5, "restore"));
}

TEST_F(Delivery, HistoryItemsGoOutAndStayOnTheClipboardAsTheyStand) {
    desk_.Host.History = {{0, {kDataTypeText, u"t%SELECTED_TEXT%"}},
                          {1, {kDataTypeRtf, u"{r%SELECTED_TEXT%}"}}};
    EXPECT_EQ(Deliver(2000), DeliverResult::HistoryItem);
    EXPECT_EQ(desk_.Typed(), u"ts");
    EXPECT_EQ(desk_.Clipboard.Find(kClipUnicodeText)->Bytes,
              FakeClipboardAccess::Text(u"t%SELECTED_TEXT%").Bytes);
    EXPECT_EQ(Deliver(2001), DeliverResult::HistoryItem);
    const std::uint32_t rich = desk_.Clipboard.RegisterFormat(kRichTextFormat);
    EXPECT_EQ(desk_.OnClipboard(rich), std::string("{r%SELECTED_TEXT%}") + '\0');
    EXPECT_EQ(Deliver(2002), DeliverResult::Nothing);
}

TEST_F(Delivery, PromptsComeInOrderBetweenTextsThatAreAllExpandedBefore) {
    phrases_.Add("p.vellumbridge",
                 u"a%SELECTED_TEXT%%PROMPT_TEXT={%DATE%}%b%TIME%%PROMPT_TEXT={}%c");
    desk_.Macros.Clock.Local.Second = 1;
    desk_.Prompts.WhileOpen = [this] { desk_.Macros.Clock.Local.Second = 2; };
    desk_.Prompts.Answers = {u"%x%", std::nullopt};
    EXPECT_EQ(Deliver(1), DeliverResult::Phrase);
    EXPECT_EQ(desk_.Typed(), u"as%x%b0:0:1c");
    EXPECT_THAT(desk_.Prompts.Defaults, ElementsAre(u"%DATE%", u""));
    EXPECT_THAT(desk_.Calls,
                ElementsAre("sound 0", "own copy begins", "keys", "keys", "prompt", "keys", "keys",
                            "keys", "keys", "prompt", "keys", "keys", "own copy ends"));
    EXPECT_EQ(Uses(), 1);
}

TEST_F(Delivery, AnEmptyAnswerTouchesNothingOnTheClipboardRoad) {
    desk_.Settings.Method = 1;
    phrases_.Add("p.vellumbridge", u"%PROMPT_TEXT={}%");
    desk_.Prompts.Answers = {u""};
    Deliver(1);
    EXPECT_THAT(desk_.Clipboard.Blocks, IsEmpty());
    EXPECT_THAT(desk_.Input.Sent, IsEmpty());
}

TEST_F(Delivery, PhrasesReadAgainUnderAPromptDoNotCountForAnother) {
    phrases_.Add("p.vellumbridge", u"%PROMPT_TEXT={x}%");
    desk_.Prompts.WhileOpen = [this] {
        phrases_.Folder.Write("other.vellumbridge", phrases_.Folder.Read("p.vellumbridge"));
        std::filesystem::remove(phrases_.Folder.Path() / "p.vellumbridge");
        phrases_.Tree.LoadTree(phrases_.Folder.Path());
    };
    desk_.Prompts.Answers = {u"typed"};
    EXPECT_EQ(Deliver(1), DeliverResult::Handled);
    EXPECT_EQ(desk_.Typed(), u"typed");
    EXPECT_EQ(Uses(), 0);
}

TEST_F(Delivery, CommandsGetTheSelectionAsOneLineAndPromptsGoToTheTarget) {
    phrases_.Add("p.vellumbridge", u"https://x/?q=%SELECTED_TEXT%%CURSOR_POS%%PROMPT_TEXT={d}%",
                 kDataTypeExec);
    desk_.Prompts.Answers = {u"answer"};
    EXPECT_EQ(Deliver(1, {.ClipboardText = u"", .SelText = u"a\r\nb"}), DeliverResult::Phrase);
    EXPECT_THAT(desk_.Starter.Started, ElementsAre(u"[https://x/?q=a b][]"));
    EXPECT_EQ(desk_.Typed(), u"answer");
    EXPECT_EQ(desk_.Calls.front(), "sound 1");
}

TEST_F(Delivery, RichPhrasesArePastedWithTheirMacros) {
    phrases_.Add("p.vellumbridge", u"{\\1a%SELECTED_TEXT%%CURSOR_POS%bc}", kDataTypeRtf);
    Deliver(1);
    const std::uint32_t rich = desk_.Clipboard.RegisterFormat(kRichTextFormat);
    EXPECT_EQ(desk_.OnClipboard(rich), std::string("{\\1asbc}") + '\0');
    EXPECT_EQ(desk_.Input.Sent.back(), CursorEvents(1));
}

TEST_F(Delivery, TheLayoutIsSwitchedWhenAnInstalledOneIsAskedFor) {
    const struct {
        std::u16string_view Text;
        Lcid Language;
        bool MaySwitch;
        bool Switches;
    } cases[] = {
        {u"%ACTIVATE_KL_RU%x", kEnglish, true, true},
        {u"%ACTIVATE_KL_RU%x", kRussian, true, false},
        {u"%ACTIVATE_KL_RU%x", kEnglish, false, false},
        {u"%ACTIVATE_KL_DE%x", kEnglish, true, false},
    };
    desk_.Macros.Layouts.Languages = {kEnglish, kRussian};
    for (const auto& c : cases) {
        desk_.Input.Sent.clear();
        phrases_.Add("p.vellumbridge", c.Text);
        Deliver(1, {u"", u"", c.Language, c.MaySwitch});
        const auto toggle = LayoutToggleEvents(LayoutToggle::AltShift, desk_.Input);
        EXPECT_EQ(desk_.Input.Sent.front() == toggle, c.Switches) << Utf16ToUtf8(c.Text);
    }
}

}  // namespace
}  // namespace vbr

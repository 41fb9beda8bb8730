// SPDX-License-Identifier: MIT
#include "shell/query_flow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/shell_fixture.h"
#include "menu/extra_commands.h"
#include "platform/clipboard_text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

using testing::ElementsAre;

class QueryFlowTest : public testing::Test, protected ShellFixture {
  protected:
    QueryFlowTest() {
        Presenter.WhileShown = [this] {
            ++menus_;
            whileMenu_();
        };
    }
    void ChoosePhrase(std::uint32_t id) { Presenter.Choice = {MenuSubjectKind::Phrase, id}; }
    std::u16string ClipboardText() { return ReadUnicodeText(Clipboard); }
    static std::shared_ptr<QueryExchange> AnswerOf(WindowHandle target) {
        auto exchange = std::make_shared<QueryExchange>();
        exchange->Query.TargetWindow = target;
        exchange->Query.SelText = u"sel";
        return exchange;
    }
    // Everything that could begin another query.
    void AskAgain() {
        Flow.OnHotKey();
        Flow.OnMouseEvent();
        Requests.OnTimer(kTimerPhraseMenu);
        Flow.OnQueryReady(AnswerOf(kTarget));
        Flow.OnOutsideChoice(1, kTarget);
    }

    int menus_ = 0;
    std::function<void()> whileMenu_ = [] {};
};

TEST_F(QueryFlowTest, APressBringsTheMenuAndItsChoiceToTheTarget) {
    AddPhrase("p", u"[%SELECTED_TEXT%|%CLIPBOARD_TEXT%]");
    Clipboard.Copy({FakeClipboardAccess::Text(u"clip")});
    LetTargetCopy(u"sel");
    ChoosePhrase(1);
    whileMenu_ = [this] { EXPECT_THAT(Heard(), ElementsAre("menu.wav")); };
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"[sel|clip]");
    whileMenu_ = [] {};
    EXPECT_THAT(Heard(), ElementsAre("menu.wav", "kbd.wav"));
    EXPECT_EQ(Phrases.Tree.FindCommand(1)->UsageCount, 1);
    EXPECT_FALSE(Flow.IsUnderWay());
    EXPECT_TRUE(Told(u"PULSEMY_COPY=0"));
    EXPECT_EQ(CapturesFirst, 2);  // before the copy and before the delivery
    // The next menu marks it.
    Flow.OnHotKey();
    EXPECT_TRUE(Presenter.Shown[0].Info.Mark);
}

TEST_F(QueryFlowTest, AClipIsTheOneThatWasChosenWhateverItsNumber) {
    AddPhrase("p", u"phrase");
    Clips.AddClips(3);
    const CCHItem* second = Clips.Queue.GetItem(1);
    Presenter.Choice = {MenuSubjectKind::HistoryItem, second->id};
    whileMenu_ = [this] {
        // It moves under the open menu, as by an undo; what is copied comes in when it closes.
        Clips.Queue.SetLocked(false);
        Clips.AddClip(u"new");
        Clips.Queue.SetLocked(true);
        Clips.AddClip(u"newer");
        EXPECT_EQ(Clips.Queue.GetCount(), 4U);
    };
    Flow.OnHotKey();
    EXPECT_EQ(Typed(), u"clip B");
    EXPECT_EQ(ClipboardText(), u"clip B");
    EXPECT_EQ(Clips.Queue.GetItem(0)->WideText(), u"newer");
}

TEST_F(QueryFlowTest, WhileAMenuIsOpenNoOtherQueryBegins) {
    AddPhrase("p", u"text");
    Clipboard.Copy({FakeClipboardAccess::Text(u"mine")});
    whileMenu_ = [this] { AskAgain(); };
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"");
    EXPECT_EQ(ClipboardText(), u"mine");
    // The next press is served again.
    whileMenu_ = [] {};
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 2);
}

TEST_F(QueryFlowTest, UntilAPromptIsAnsweredNoOtherQueryBeginsAndThePhrasesStay) {
    const std::filesystem::path file = AddPhrase("p", u"%PROMPT_TEXT={}%");
    ChoosePhrase(1);
    Prompts.Answers = {u"answer"};
    Prompts.WhileOpen = [this] {
        AskAgain();
        Phrases.Write("q.vellumbridge");
        Commands.Run(kCmdRereadPhrases);
        Requests.OnEditorEnded();
        EXPECT_EQ(PhraseCount(), 1U);
        EXPECT_TRUE(Flow.IsUnderWay());
    };
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"answer");
    EXPECT_EQ(Phrases.Tree.FindByFile(file)->UsageCount, 1);
    EXPECT_EQ(PhraseCount(), 2U);
}

TEST_F(QueryFlowTest, OnThePostedRouteTheTargetIsWaitedForAndNoLonger) {
    Route.To = &Posted;
    AddPhrase("p", u"%SELECTED_TEXT%");
    ChoosePhrase(1);
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 0);
    EXPECT_TRUE(Flow.IsUnderWay());
    const auto posts = [this] {
        return std::ranges::count_if(Calls, [](auto& call) { return call.starts_with("post "); });
    };
    // Another target answers late, the key is pressed again.
    Flow.OnQueryReady(AnswerOf(kTarget + 1));
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 0);
    EXPECT_EQ(posts(), 1);
    Flow.OnQueryReady(AnswerOf(kTarget));
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"sel");
    // A target that doesn't answer doesn't lock the key.
    Flow.OnHotKey();
    Macros.Clock.Tick += 4000;
    Waiter.Busy = true;
    Flow.OnHotKey();
    EXPECT_EQ(posts(), 2);
    Waiter.Busy = false;
    Flow.OnHotKey();
    EXPECT_EQ(posts(), 3);
    Flow.OnQueryReady(nullptr);
    EXPECT_EQ(menus_, 1);
}

TEST_F(QueryFlowTest, OnlyTheTargetThatIsWaitedForMayChooseAndOnlyWhatItsMenuHas) {
    Route.To = &Posted;
    Settings.InsertCHIntoMenu = true;
    AddPhrase("p", u"phrase%SELECTED_TEXT%");
    Clips.AddClips(1);
    EXPECT_FALSE(Flow.OnTargetsChoice(1, kTarget));
    Flow.OnHotKey();
    EXPECT_TRUE(View.AdmitsChoice);
    EXPECT_FALSE(Flow.OnTargetsChoice(1, kTarget + 1));
    EXPECT_TRUE(Flow.OnTargetsChoice(1, kTarget));
    EXPECT_FALSE(View.AdmitsChoice);
    EXPECT_EQ(Typed(), u"phrase");
    EXPECT_FALSE(Flow.OnTargetsChoice(1, kTarget));
    // A result that no menu has, a number that none has, a group or a separator.
    for (const std::int32_t nothing : {kResultSupport, kResultEditPhrases, 0, -1, 77, 1999}) {
        Flow.OnHotKey();
        EXPECT_TRUE(Flow.OnTargetsChoice(nothing, 0));
        EXPECT_FALSE(Flow.IsUnderWay());
    }
    EXPECT_EQ(Typed(), u"phrase");
    EXPECT_TRUE(Opener.Opened.empty());
    Flow.OnHotKey();
    EXPECT_TRUE(Flow.OnTargetsChoice(2000, 0));
    EXPECT_EQ(Typed(), u"phraseclip A");
    // Nor when it comes too late, or under the menu.
    Flow.OnHotKey();
    Macros.Clock.Tick += 4000;
    Expire(kTimerTargetAnswer);
    EXPECT_FALSE(View.AdmitsChoice);
    EXPECT_FALSE(Flow.OnTargetsChoice(1, kTarget));
    Flow.OnHotKey();
    whileMenu_ = [this] {
        EXPECT_FALSE(View.AdmitsChoice);
        EXPECT_FALSE(Flow.OnTargetsChoice(1, kTarget));
    };
    Flow.OnQueryReady(AnswerOf(kTarget));
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"phraseclip A");
}

TEST_F(QueryFlowTest, WithoutATargetNothingOpensAndTheNextPressIsServed) {
    AddPhrase("p", u"text");
    Library.Target = 0;
    Settings.ShowTrayBallonOnHotkey = true;
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 0);
    EXPECT_EQ(View.Balloon, u"");
    Library.Target = kTarget;
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 1);
    EXPECT_NE(View.Balloon.find(u"Ctrl+Alt+Key13"), std::u16string::npos);
}

TEST_F(QueryFlowTest, APressCountsWhenTheUserIsHereTheServiceOnAndBothPressesCame) {
    AddPhrase("p", u"text");
    Desktops.Input.Name.Text = u"Winlogon";
    Flow.OnHotKey();
    Desktops.Input.Name.Text = u"Default";
    Service.StopService();
    Flow.OnHotKey();
    Service.InstallService();
    Settings.Hotkey_Doubled = true;
    Macros.Clock.Tick = 10'000;
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 0);
    Macros.Clock.Tick = 10'400;
    Flow.OnHotKey();
    EXPECT_EQ(menus_, 1);
}

TEST_F(QueryFlowTest, WhenTheProgramEndsUnderAMenuNothingIsChosenAndWhatWaitsIsDropped) {
    const std::filesystem::path file = AddPhrase("p", u"text");
    Clipboard.Copy({FakeClipboardAccess::Text(u"mine")});
    LetTargetCopy(u"sel");
    ChoosePhrase(1);
    whileMenu_ = [this] {
        Commands.Run(kCmdEnableService);
        Commands.Run(kCmdEnableService);
        Requests.OnInstanceSignal(kSignalExit);
    };
    Flow.OnHotKey();
    EXPECT_FALSE(Service.IsServiceInstalled());
    AskAgain();
    EXPECT_EQ(menus_, 1);
    EXPECT_EQ(Typed(), u"");
    EXPECT_EQ(Phrases.Tree.FindByFile(file)->UsageCount, 0);
    EXPECT_EQ(ClipboardText(), u"mine");
}

TEST_F(QueryFlowTest, AHeldHotKeyIsPressedOnce) {
    AddPhrase("p", u"text");
    Input.Held = {13};
    for (const std::uint32_t tick : {1000U, 2000U, 2030U}) {
        Requests.OnHotKey(tick);
        Expire(kTimerHeldHotkey);
    }
    EXPECT_EQ(menus_, 1);
    Input.Held.clear();
    Expire(kTimerHeldHotkey);
    Requests.OnHotKey(2060);
    EXPECT_EQ(menus_, 2);
    Requests.OnHotKey(2200);
    EXPECT_EQ(menus_, 3);
    // It was let go under the menu, and no timer came before the next press.
    Input.Held = {13};
    whileMenu_ = [this] { Input.Held.clear(); };
    Requests.OnHotKey(2250);
    EXPECT_EQ(menus_, 4);
    whileMenu_ = [] {};
    Requests.OnHotKey(2300);
    EXPECT_EQ(menus_, 5);
    // Nobody could look at the key for a while.
    Input.Held = {13};
    Requests.OnHotKey(2400);
    Requests.OnHotKey(3600);
    EXPECT_EQ(menus_, 7);
}

TEST_F(QueryFlowTest, AChoiceFromOutsideIsCarriedOutByItsNumber) {
    AddPhrase("p", u"phrase");
    Clips.AddClips(2);
    Flow.OnOutsideChoice(1, kTarget);
    Flow.OnOutsideChoice(2001, kTarget);
    EXPECT_EQ(Typed(), u"phraseclip B");
    Flow.OnOutsideChoice(kResultSupport, kTarget);
    EXPECT_EQ(Opener.Opened.size(), 1U);
    for (const std::int32_t nothing : {0, -1, -5, 77, 1999}) {
        Flow.OnOutsideChoice(nothing, kTarget);
    }
    EXPECT_EQ(Opener.Opened.size(), 1U);
    EXPECT_EQ(Typed(), u"phraseclip B");
}

TEST_F(QueryFlowTest, ACopyByRightClickStaysOnTheClipboardWhenTheMenuIsLeft) {
    AddPhrase("p", u"over %SELECTED_TEXT% and %CLIPBOARD_TEXT%");
    Clipboard.Copy({FakeClipboardAccess::Text(u"mine")});
    LetTargetCopy(u"sel");
    whileMenu_ = [this] {
        EXPECT_FALSE(Flow.OnRightMenuCommand(RightMenuCode::Copy, {MenuSubjectKind::Phrase, 1}));
    };
    Flow.OnHotKey();
    EXPECT_EQ(ClipboardText(), u"over sel and mine");
}

}  // namespace
}  // namespace vbr

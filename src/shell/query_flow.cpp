// SPDX-License-Identifier: MIT
#include "shell/query_flow.h"

#include <utility>

#include "base/text.h"
#include "menu/extra_commands.h"
#include "platform/clipboard_text.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr std::uint32_t kQueryBalloonMs = 3000;
constexpr std::uint32_t kFailureBalloonMs = 10'000;

// A target that was busy for longer does not answer any more.
constexpr std::uint32_t kAnswerMs = 3500;

}  // namespace

void QueryFlow::OnHotKey() {
    if (MayServeHotkey(with_.Desktops, with_.Log) && !IsUnderWay() &&
        doublePress_.Press(with_.Settings.Hotkey_Doubled, with_.Clock.TickCount()) &&
        with_.Hotkey.IsInstalled()) {
        Begin(true);
    }
}

void QueryFlow::OnMouseEvent() {
    if (stopped_ || IsUnderWay()) {
        return;
    }
    with_.Display.ShowTrayBalloon(Concat(with_.Texts.LoadString(kStrMouseEventDetected), u"\n",
                                         with_.Texts.LoadString(kStrShowingMenu), u"…"),
                                  kQueryBalloonMs);
    Begin(false);
}

void QueryFlow::Begin(bool fromHotkey) {
    if (stopped_ || IsUnderWay()) {
        with_.Log.Write(u"No query begins: one is under way, or the program ends");
        return;
    }
    query_ = Query{.Number = ++lastNumber_};
    if (fromHotkey && with_.Settings.ShowTrayBallonOnHotkey) {
        with_.Display.ShowTrayBalloon(
            Concat(with_.Texts.LoadString(kStrHotKeyDetected), u" - ", with_.Hotkey.HotkeyName(),
                   u"\n", with_.Texts.LoadString(kStrShowingMenu), u"…"),
            kQueryBalloonMs);
    }
    with_.Sounds.PlayEventSound(EventSound::MenuRequested);
    Ask(fromHotkey);
    if (!query_->Awaited) {
        End();
    }
}

void QueryFlow::Ask(bool fromHotkey) {
    with_.CaptureFirst();
    WPQuery query;
    query.GuiThreadInfo = with_.Windows.OwnGuiThread();
    switch (with_.Hooks.SendMessageToTargetWindow(fromHotkey ? 0 : 1, query)) {
        case QueryStart::Posted:
            Await(query.TargetWindow);
            with_.Display.HideTrayBalloon();
            break;
        case QueryStart::Failed:
            with_.Display.HideTrayBalloon();
            break;
        case QueryStart::Local: {
            WPAnswer answer;
            Serve(query, answer);
            break;
        }
    }
}

// Only now a target with fewer rights may send its choice.
void QueryFlow::Await(WindowHandle target) {
    query_->Target = target;
    query_->PostedAt = with_.Clock.TickCount();
    query_->Awaited = true;
    with_.View.AdmitChoice(true);
    with_.View.StartTimer(kTimerTargetAnswer, kAnswerMs);
}

void QueryFlow::EndAwaiting() {
    query_->Awaited = false;
    with_.View.AdmitChoice(false);
}

void QueryFlow::OnAnswerOverdue() {
    with_.View.AdmitChoice(false);
}

void QueryFlow::OnQueryReady(const std::shared_ptr<QueryExchange>& exchange) {
    if (!exchange || stopped_) {
        return;
    }
    const bool isAnswer =
        query_ && query_->Awaited && query_->Target == exchange->Query.TargetWindow;
    if (IsUnderWay() && !isAnswer) {
        with_.Log.Write(Concat(u"A target answers while query ", query_->Number,
                               u" is under way: its menu does not open"));
        return;
    }
    if (!isAnswer) {
        query_ = Query{.Number = ++lastNumber_};
    }
    EndAwaiting();
    Serve(exchange->Query, exchange->Answer);
    End();
}

void QueryFlow::Serve(const WPQuery& query, WPAnswer& answer) {
    // The query may end while the menu is open.
    const WindowHandle target = query.TargetWindow;
    with_.Menu.SetClipboardAtHotkey(with_.Menu.AsksForClipboard() ? ClipboardText() : u"");
    const MenuChoice choice = with_.Menu.OnDataNeeded(query, answer);
    CarryOut(stopped_ ? MenuChoice() : choice, target);
}

void QueryFlow::CarryOut(const MenuChoice& choice, WindowHandle target, WindowHandle asker) {
    with_.Log.Write(u"CVBRTrayWnd::OnWmCommandFromSelf");
    with_.CaptureFirst();
    with_.Selection.TakeBackLateCopy();
    if (const auto* result = std::get_if<std::int32_t>(&choice)) {
        RunExtraCommand(*result, asker);
        return;
    }
    if (const auto lost = Deliver(choice, target)) {
        with_.Log.LogError(Concat(u"Not delivered: ", lost->Text));
        with_.Display.ShowTrayBalloon(DescribeFailure(lost->Why, lost->Text, with_.Texts),
                                      kFailureBalloonMs);
    }
}

std::u16string QueryFlow::ClipboardText() {
    if (auto kept = with_.Snapshot.Text()) {
        return *std::move(kept);
    }
    return ReadUnicodeText(with_.Clipboard);
}

std::optional<UndeliveredText> QueryFlow::Deliver(const MenuChoice& choice, WindowHandle target) {
    const DeliveryContext context = with_.Menu.Context();
    if (const auto* file = std::get_if<std::filesystem::path>(&choice)) {
        auto lost = with_.Delivery.DeliverPhrase(*file, target, context);
        with_.Menu.RememberCommand(*file);
        return lost;
    }
    const auto* item = std::get_if<ClipId>(&choice);
    const auto clip = item ? with_.History.AsClip(item->Value) : std::nullopt;
    return clip ? with_.Delivery.DeliverClip(*clip, target, context) : std::nullopt;
}

void QueryFlow::RunExtraCommand(std::int32_t result, WindowHandle asker) {
    switch (result) {
        case kResultEditPhrases:
            with_.StartEditor(asker, {});
            break;
        case kResultHistoryPane:
            with_.RunCommand(kCmdTogglePane);
            break;
        case kResultSelectionIntoPhrase:
            with_.StartEditor(asker, with_.Menu.Context().SelText);
            break;
        case kResultSupport:
            with_.RunCommand(kCmdSupport);
            break;
        default:
            break;
    }
}

void QueryFlow::End() {
    query_.reset();
    for (const auto& work : std::exchange(waiting_, {})) {
        work();
    }
}

bool QueryFlow::OnTargetsChoice(std::int32_t number, WindowHandle target) {
    const bool isPending = !stopped_ && query_ && query_->Awaited &&
                           with_.Clock.TickCount() - query_->PostedAt < kAnswerMs;
    if (!isPending || (target != 0 && target != query_->Target)) {
        with_.Log.Write(u"A choice comes that no query waits for, it is not carried out");
        return false;
    }
    EndAwaiting();
    WPQuery query;
    query.TargetWindow = query_->Target;
    query.Hkl = with_.Windows.KeyboardLayout(with_.Windows.ThreadOf(query_->Target).Thread);
    with_.Menu.SetClipboardAtHotkey(with_.Menu.AsksForClipboard() ? ClipboardText() : u"");
    CarryOut(with_.Menu.ChoiceInMenu(query, number), query.TargetWindow);
    End();
    return true;
}

void QueryFlow::OnOutsideChoice(std::int32_t number, WindowHandle target) {
    if (stopped_) {
        return;
    }
    if (IsUnderWay()) {
        with_.Log.Write(Concat(u"Query ", query_->Number,
                               u" is under way, a choice from outside is not carried out"));
        return;
    }
    const WindowHandle asker = target;
    if (target == 0) {
        target = with_.Hooks.GetTargetWindow();
    }
    query_ = Query{.Number = ++lastNumber_, .Target = target};
    CarryOut(number > 0 ? with_.Menu.ChoiceOfNumber(static_cast<std::uint32_t>(number))
                        : MenuChoice(number),
             target, asker);
    End();
}

bool QueryFlow::OnRightMenuCommand(RightMenuCode code, const MenuSubject& item) {
    return with_.RightMenu.OnRightMenuCommand(static_cast<std::uint32_t>(code),
                                              with_.Menu.ChoiceOf(item));
}

bool QueryFlow::OnOutsideRightMenuCommand(std::uint32_t code, std::uint32_t number) {
    return with_.RightMenu.OnRightMenuCommand(code, with_.Menu.ChoiceOfNumber(number));
}

bool QueryFlow::IsUnderWay() const {
    return query_ && (!query_->Awaited || with_.Hotkey.IsQueryOnItsWay() ||
                      with_.Clock.TickCount() - query_->PostedAt < kAnswerMs);
}

void QueryFlow::Stop() {
    stopped_ = true;
    waiting_.clear();
}

void QueryFlow::WhenIdle(std::function<void()> work) {
    if (stopped_) {
        return;
    }
    if (query_ && !query_->Awaited) {
        waiting_.push_back(std::move(work));
    } else {
        work();
    }
}

}  // namespace vbr

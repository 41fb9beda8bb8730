// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "history/win32/clipboard_handler.h"
#include "menu/extra_commands.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "shell/choice_block.h"
#include "shell/tray_messages.h"
#include "shell/win32/app_objects.h"
#include "shell/win32/tray_window.h"

// What other threads, the menu and outside programs ask of the tray window.
namespace vbr {
namespace {

constexpr std::uint32_t kQueryBalloonMs = 3000;

}  // namespace

// The sender of a message gave the address: it may be bad. False then.
bool CVBRTrayWnd::CopyToSender(LPARAM buffer, const std::u16string& text) {
    return buffer != 0 && RunSilently(faults_, false, [&] {
               auto* units = reinterpret_cast<char16_t*>(buffer);
               units[text.copy(units, text.size())] = u'\0';
               return true;
           });
}

LRESULT CVBRTrayWnd::OnQueryReady(WPARAM query, LPARAM answer) {
    road_->OnQueryReady(query, answer);
    return 1;
}

LRESULT CVBRTrayWnd::OnWaitError(WPARAM, LPARAM) {
    context_.TrayLog.LogError(
        u"Reveived message WM_WAIT_QUERY_COMPLETE_ERROR, wait of query complete with error");
    road_->RestartQueryWait();
    return 0;
}

LRESULT CVBRTrayWnd::OnEditorState(WPARAM state, LPARAM) {
    if (state <= static_cast<WPARAM>(EditorState::Closed)) {
        context_.TrayRooms.Companions.OnEditorState(static_cast<EditorState>(state));
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnEditorEnded(WPARAM, LPARAM) {
    context_.TrayLog.Write(u"Detected event: PhraseEditor closed");
    context_.Settings.Load();
    road_->ClearMenuFonts();
    ApplyLanguage();
    UpdateTrayIcon(TrayIconMode::Modify, {}, false);
    RereadPhrases(false);
    if (context_.Settings.ClipboardHistory && !IsSpyRunning()) {
        AnnounceKeep(StartSpy());
    }
    UpdateTrayIcon(TrayIconMode::Modify, {}, false);
    return 0;
}

LRESULT CVBRTrayWnd::OnUpdateResult(WPARAM, LPARAM result) {
    HideTrayBalloon();
    context_.TrayRooms.Updates.ShowResult(static_cast<std::uintptr_t>(result));
    return 0;
}

LRESULT CVBRTrayWnd::OnGetPaneTitle(WPARAM, LPARAM buffer) {
    const std::u16string title = Concat(Text(kStrProductName), u" - ", Text(kStrPaneTitle), u" [",
                                        context_.TrayRooms.History.ItemCount(), u"]");
    CopyToSender(buffer, title);
    return static_cast<LRESULT>(title.size());
}

LRESULT CVBRTrayWnd::OnGetPaneText(WPARAM, LPARAM buffer) {
    const auto text = context_.TrayRooms.Pane.SelectedText();
    return text && !text->empty() && CopyToSender(buffer, *text);
}

LRESULT CVBRTrayWnd::OnShowPane(WPARAM mode, LPARAM) {
    if (mode <= 1) {
        context_.TrayRooms.Pane.Show(PaneShowMode::Show);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnPaneBlink(WPARAM, LPARAM) {
    if (context_.TrayRooms.Pane.Exists()) {
        context_.TrayRooms.Pane.Blink();
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnInstallSpy(WPARAM, LPARAM) {
    return context_.Settings.ClipboardHistory && StartSpy();
}

LRESULT CVBRTrayWnd::OnGetQueue(WPARAM, LPARAM) {
    return static_cast<LRESULT>(context_.TrayRooms.History.Handler());
}

LRESULT CVBRTrayWnd::OnAllowWaitAgent(WPARAM, LPARAM) {
    return road_->IsAllow_WaitAnswerFromExeAgent();
}

LRESULT CVBRTrayWnd::OnLanguageChanged(WPARAM, LPARAM) {
    ApplyLanguage();
    context_.TrayRooms.History.OnLanguageChanged();
    UpdateTrayIcon(TrayIconMode::Modify, {}, false);
    uiObservers_.Announce(
        [](UiObserver& observer) { observer.OnUiChanged(UiChange::LanguageApplied, 0); });
    return 0;
}

LRESULT CVBRTrayWnd::OnHideTip(WPARAM, LPARAM) {
    context_.TrayRooms.Tips.Hide();
    return 0;
}

LRESULT CVBRTrayWnd::OnEnterIdle(WPARAM reason, LPARAM window) {
    context_.TrayRooms.Tips.OnEnterIdle(reason, static_cast<std::uintptr_t>(window));
    return 0;
}

LRESULT CVBRTrayWnd::OnAddMessage(LPARAM text) {
    if (text != 0) {
        const std::u16string message = RunSilently(faults_, std::u16string(), [text] {
            return std::u16string(FromWide(reinterpret_cast<const wchar_t*>(text)));
        });
        CAppObjects::Messages().push_back(message);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnNotify(WPARAM control, LPARAM header) {
    if (control != kHistoryControlId || header == 0) {
        return 0;
    }
    const HistoryNotice notice = RunSilently(faults_, HistoryNotice{}, [header] {
        return *reinterpret_cast<const HistoryNotice*>(header);
    });
    const HistoryReaction reaction =
        context_.TrayRooms.History.OnNotify(notice.Header.code, notice.Parameter);
    if (reaction.Refresh) {
        UpdateTrayIcon(TrayIconMode::Modify, {}, false);
    }
    if (reaction.PlaySound) {
        sounds_.PlayEventSound(EventSound::ClipKept);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnHotKey(WPARAM id, LPARAM) {
    if (id == kHotkeyId && MayServeHotkey(desktops_, context_.TrayLog) &&
        doublePress_.Press(context_.Settings.Hotkey_Doubled, clock_.TickCount()) &&
        road_->IsServiceInstalled() && !road_->IsMenuShown()) {
        StartQuery(true);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnMouseEvent() {
    ShowTrayBalloon(Concat(Text(kStrMouseEventDetected), u"\n", Text(kStrShowingMenu), u"…"),
                    kQueryBalloonMs);
    if (!road_->IsMenuShown()) {
        StartQuery(false);
    }
    return 0;
}

void CVBRTrayWnd::StartQuery(bool fromHotkey) {
    if (fromHotkey && context_.Settings.ShowTrayBallonOnHotkey) {
        ShowTrayBalloon(Concat(Text(kStrHotKeyDetected), u" - ", road_->HotkeyName(), u"\n",
                               Text(kStrShowingMenu), u"…"),
                        kQueryBalloonMs);
    }
    sounds_.PlayEventSound(EventSound::MenuRequested);
    const OwnCopyScope ownCopy(context_.TrayRooms.History);
    if (road_->StartQuery(fromHotkey) != QueryStart::Local) {
        HideTrayBalloon();
    }
}

LRESULT CVBRTrayWnd::OnCommandFromSelf(WPARAM choice, LPARAM target) {
    React(static_cast<std::int32_t>(choice), static_cast<WindowHandle>(target));
    return 0;
}

LRESULT CVBRTrayWnd::OnCopyData(WPARAM, LPARAM block) {
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(block);
    const auto choice = ReadChoiceBlock(
        {static_cast<const std::byte*>(data->lpData), data->lpData ? data->cbData : 0});
    if (choice) {
        React(choice->Choice, choice->Target);
    }
    return choice.has_value();
}

void CVBRTrayWnd::React(std::int32_t choice, WindowHandle target) {
    context_.TrayLog.Write(u"CVBRTrayWnd::OnWmCommandFromSelf");
    HistoryRoom& history = context_.TrayRooms.History;
    const OwnCopyScope ownCopy(history);
    // Changes are told some time after they are made.
    history.BlockForAWhile();
    if (choice > 0) {
        road_->Deliver(static_cast<std::uint32_t>(choice), target);
        history.BlockForAWhile();
        return;
    }
    road_->RestoreClipboardSnapshot();
    switch (choice) {
        case kResultEditPhrases:
            context_.TrayRooms.Companions.StartEditor(false, {});
            break;
        case kResultHistoryPane:
            SendMessageW(Handle(), WM_COMMAND, kCmdTogglePane, 0);
            break;
        case kResultSelectionIntoPhrase:
            context_.TrayRooms.Companions.StartEditor(false, road_->SelectedText());
            break;
        case kResultSupport:
            PostMessageW(Handle(), WM_COMMAND, kCmdSupport, 0);
            break;
        default:
            break;
    }
}

LRESULT CVBRTrayWnd::OnRightMenuCommand(WPARAM code, LPARAM item) {
    return road_->OnRightMenuCommand(static_cast<std::uint32_t>(code),
                                     static_cast<std::uint32_t>(item));
}

}  // namespace vbr

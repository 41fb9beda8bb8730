// SPDX-License-Identifier: MIT
#include "shell/win32/tray_window.h"

#include "base/text.h"
#include "platform/object_names.h"
#include "platform/win32/auto_foreground_window.h"
#include "platform/win32/modal_loops.h"
#include "platform/win32/received.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_icons.h"
#include "resources/resource_ids.h"
#include "shell/choice_block.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr DWORD kTrayStyle = 0x008D0000;
constexpr int kOutside = -100;  // left of and above every screen

UINT Registered(std::u16string_view name) {
    return RegisterWindowMessageW(Wide(name.data()));
}

}  // namespace

CVBRTrayWnd::CVBRTrayWnd(const ProcessContext& process)
    : process_(process),
      instanceSignal_(Registered(kMessageInstanceSignal)),
      taskbarCreated_(Registered(kMessageTaskbarCreated)),
      addMessage_(Registered(kMessageAddMessage)),
      mouseEvent_(Registered(kMessageMouseEvent)),
      icon_(process.Guard) {}

CVBRTrayWnd::~CVBRTrayWnd() {
    // The threads that the program joins wait for it.
    process_.Stop.Set();
    if (Handle()) {
        DestroyWindow(Handle());
    }
}

bool CVBRTrayWnd::Create() {
    const std::u16string title = process_.Texts.LoadString(kStrProductName);
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_Tray";
    creation.Title = title;
    creation.Style = kTrayStyle;
    creation.X = creation.Y = kOutside;
    creation.Width = creation.Height = 95;
    return WindowBase::Create(creation);
}

std::optional<LRESULT> CVBRTrayWnd::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr MessageHandler<CVBRTrayWnd> kMap[] = {
        {WM_CREATE, &CVBRTrayWnd::OnCreate},
        {WM_DESTROY, &CVBRTrayWnd::OnDestroy},
        {WM_TIMER, &CVBRTrayWnd::OnTimer},
        {WM_CLOSE, &CVBRTrayWnd::OnClose},
        {WM_ENDSESSION, &CVBRTrayWnd::OnEndSession},
        {WM_WTSSESSION_CHANGE, &CVBRTrayWnd::OnSessionChange},
        {WM_HOTKEY, &CVBRTrayWnd::OnHotKey},
        {WM_COMMAND, &CVBRTrayWnd::OnCommand},
        {WM_COPYDATA, &CVBRTrayWnd::OnCopyData},
        {WM_NOTIFY, &CVBRTrayWnd::OnNotify},
        {WM_INITMENUPOPUP, &CVBRTrayWnd::OnInitMenuPopup},
        {WM_MENUSELECT, &CVBRTrayWnd::OnMenuSelect},
        {WM_ENTERIDLE, &CVBRTrayWnd::OnEnterIdle},
        {kMsgInstallTrayIcon, &CVBRTrayWnd::OnInstallTrayIcon},
        {kMsgTrayNotify, &CVBRTrayWnd::OnTrayNotify},
        {kMsgQueryReady, &CVBRTrayWnd::OnQueryReady},
        {kMsgEditorState, &CVBRTrayWnd::OnEditorState},
        {kMsgEditorEnded, &CVBRTrayWnd::OnEditorEnded},
        {kMsgGetPaneTitle, &CVBRTrayWnd::OnGetPaneTitle},
        {kMsgInstallSpy, &CVBRTrayWnd::OnInstallSpy},
        {kMsgAllowWaitAgent, &CVBRTrayWnd::OnAllowWaitAgent},
        {kMsgCommandFromSelf, &CVBRTrayWnd::OnCommandFromSelf},
        {kMsgGetQueue, &CVBRTrayWnd::OnGetQueue},
        {kMsgWaitError, &CVBRTrayWnd::OnWaitError},
        {kMsgHideTip, &CVBRTrayWnd::OnHideTip},
        {kMsgShowMenuRequest, &CVBRTrayWnd::OnShowMenuRequest},
        {kMsgRightMenuCommand, &CVBRTrayWnd::OnRightMenuCommand},
        {kMsgLanguageChanged, &CVBRTrayWnd::OnLanguageChanged},
        {kMsgPhraseChanged, &CVBRTrayWnd::OnPhraseChanged},
        {kMsgHistorySaveEnded, &CVBRTrayWnd::OnHistorySaveEnded},
    };
    if (message == WM_CREATE) {
        program_ = std::make_unique<Program>(process_, Handle(), static_cast<TrayView&>(*this));
        menu_ = std::make_unique<TrayMenuPopup>(Handle(), program_->Menu(), program_->MenuTips(),
                                                process_.Texts, process_.Clock, process_.Log);
    }
    if (!program_) {
        return std::nullopt;
    }
    if (message == instanceSignal_) {
        program_->Requests().OnInstanceSignal(wParam);
        return 0;
    }
    if (message == taskbarCreated_) {
        program_->Display().OnTaskbarCreated();
        return 0;
    }
    if (message == addMessage_) {
        return OnAddMessage(lParam);
    }
    if (message == mouseEvent_) {
        program_->Flow().OnMouseEvent();
        return 0;
    }
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CVBRTrayWnd::OnCreate(WPARAM, LPARAM) {
    // The shell has fewer rights than an elevated window that it tells of its new taskbar.
    ChangeWindowMessageFilterEx(Handle(), taskbarCreated_, MSGFLT_ALLOW, nullptr);
    SetWindowIcons(Handle(), kIconProgram);
    program_->Start();
    SetWindowPos(Handle(), nullptr, kOutside, kOutside, 10, 10,
                 SWP_NOACTIVATE | SWP_NOZORDER | SWP_HIDEWINDOW);
    if (!StartTimer(kTimerLateWatchers, kLateWatchersMs)) {
        program_->WatchLateEvents();
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnDestroy(WPARAM, LPARAM) {
    program_->Stop();
    // However the window was closed, the process ends with it.
    PostQuitMessage(0);
    return 0;
}

LRESULT CVBRTrayWnd::OnTimer(WPARAM id, LPARAM) {
    KillTimer(Handle(), id);
    if (id == kTimerEnd) {
        EndModalLoops();
        StartTimer(kTimerEnd, kEndMs);
    } else if (id == kTimerLateWatchers) {
        program_->WatchLateEvents();
    } else if (!menu_->OnTimer(id)) {
        program_->Requests().OnTimer(id);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnEndSession(WPARAM wParam, LPARAM lParam) {
    process_.Log.Write(Concat(u"WM_ENDSESSION wParam=", wParam, u" lParam=", lParam));
    if (wParam) {
        // The process may be gone as soon as this returns.
        Close();
        // When the message came while that was at it.
        program_->WaitUntilSaved();
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnClose(WPARAM, LPARAM) {
    Close();
    return 0;
}

LRESULT CVBRTrayWnd::OnSessionChange(WPARAM reason, LPARAM sessionId) {
    program_->Session().OnWmWTSSessionChange(static_cast<std::uint32_t>(reason),
                                             static_cast<std::uint32_t>(sessionId));
    return 0;
}

LRESULT CVBRTrayWnd::OnHotKey(WPARAM id, LPARAM) {
    if (id == kHotkeyId) {
        program_->Requests().OnHotKey(static_cast<std::uint32_t>(GetMessageTime()));
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnCommand(WPARAM command, LPARAM) {
    program_->Commands().Run(LOWORD(command));
    return 1;
}

LRESULT CVBRTrayWnd::OnNotify(WPARAM control, LPARAM header) {
    if (control == kHistoryControlId) {
        if (const auto notice = Received<HistoryNotice>(process_.Faults, header)) {
            program_->History().OnNotice(notice->Header.code, notice->Parameter,
                                         GetClipboardSequenceNumber());
        }
        return 0;
    }
    const auto notice = Received<NMHDR>(process_.Faults, header);
    return notice && menu_->OnNotify(*notice);
}

LRESULT CVBRTrayWnd::OnTrayNotify(WPARAM, LPARAM notice) {
    program_->Requests().OnTrayNotify(static_cast<std::uint32_t>(notice));
    return 0;
}

LRESULT CVBRTrayWnd::OnInitMenuPopup(WPARAM menu, LPARAM) {
    menu_->OnInitMenuPopup(reinterpret_cast<HMENU>(menu));
    return 0;
}

LRESULT CVBRTrayWnd::OnMenuSelect(WPARAM item, LPARAM menu) {
    menu_->OnMenuSelect(item, menu);
    return 0;
}

LRESULT CVBRTrayWnd::OnEnterIdle(WPARAM reason, LPARAM window) {
    menu_->OnEnterIdle(reason, window);
    return 0;
}

LRESULT CVBRTrayWnd::OnHideTip(WPARAM, LPARAM) {
    menu_->HideTip();
    return 0;
}

LRESULT CVBRTrayWnd::OnInstallTrayIcon(WPARAM, LPARAM) {
    return program_->Display().OnInstallTrayIcon();
}

LRESULT CVBRTrayWnd::OnQueryReady(WPARAM query, LPARAM answer) {
    program_->Flow().OnQueryReady(program_->FindQuery(query, answer));
    return 1;
}

LRESULT CVBRTrayWnd::OnWaitError(WPARAM, LPARAM) {
    program_->Requests().OnWaitError();
    return 0;
}

LRESULT CVBRTrayWnd::OnEditorState(WPARAM state, LPARAM) {
    if (state <= static_cast<WPARAM>(EditorState::Closed)) {
        program_->Requests().OnEditorState(static_cast<EditorState>(state));
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnEditorEnded(WPARAM, LPARAM) {
    program_->Requests().OnEditorEnded();
    return 0;
}

LRESULT CVBRTrayWnd::OnGetPaneTitle(WPARAM, LPARAM buffer) {
    const std::u16string title = program_->Requests().PaneTitle();
    CopyToSender(buffer, title);
    return static_cast<LRESULT>(title.size());
}

// The sender of a message gave the address: it may be bad. False then.
bool CVBRTrayWnd::CopyToSender(LPARAM buffer, const std::u16string& text) {
    return buffer != 0 && RunSilently(process_.Faults, false, [&] {
               auto* units = reinterpret_cast<char16_t*>(buffer);
               units[text.copy(units, text.size())] = u'\0';
               return true;
           });
}

LRESULT CVBRTrayWnd::OnInstallSpy(WPARAM, LPARAM) {
    return program_->History().OnInstallSpy();
}

LRESULT CVBRTrayWnd::OnAllowWaitAgent(WPARAM, LPARAM) {
    return program_->Service().IsAllow_WaitAnswerFromExeAgent();
}

LRESULT CVBRTrayWnd::OnCommandFromSelf(WPARAM choice, LPARAM target) {
    program_->Flow().OnOutsideChoice(static_cast<std::int32_t>(choice),
                                     static_cast<WindowHandle>(target));
    return 0;
}

LRESULT CVBRTrayWnd::OnCopyData(WPARAM, LPARAM block) {
    const auto data = Received<COPYDATASTRUCT>(process_.Faults, block);
    const auto choice = RunSilently(process_.Faults, std::optional<ChoiceBlock>(), [&data] {
        return data && data->lpData
                   ? ReadChoiceBlock({static_cast<const std::byte*>(data->lpData), data->cbData})
                   : std::nullopt;
    });
    return choice && program_->Flow().OnTargetsChoice(choice->Choice, choice->Target);
}

LRESULT CVBRTrayWnd::OnGetQueue(WPARAM, LPARAM) {
    return reinterpret_cast<LRESULT>(&program_->Handler());
}

LRESULT CVBRTrayWnd::OnShowMenuRequest(WPARAM, LPARAM) {
    const CAutoForegroundWindow front(Handle());
    SetActiveWindow(Handle());
    MessageBeep(MB_ICONINFORMATION);
    ShowTrayMenu(TrayMenuPlace::Mouse);
    return 0;
}

LRESULT CVBRTrayWnd::OnRightMenuCommand(WPARAM code, LPARAM item) {
    return program_->Flow().OnOutsideRightMenuCommand(static_cast<std::uint32_t>(code),
                                                      static_cast<std::uint32_t>(item));
}

LRESULT CVBRTrayWnd::OnLanguageChanged(WPARAM, LPARAM) {
    program_->Requests().OnLanguageChanged();
    return 0;
}

LRESULT CVBRTrayWnd::OnPhraseChanged(WPARAM, LPARAM) {
    program_->Commands().RereadPhrases(false);
    return 0;
}

LRESULT CVBRTrayWnd::OnHistorySaveEnded(WPARAM, LPARAM) {
    program_->History().OnSaveEnded();
    return 0;
}

LRESULT CVBRTrayWnd::OnAddMessage(LPARAM text) {
    std::u16string message = RunSilently(process_.Faults, std::u16string(), [text] {
        return text != 0 ? std::u16string(FromWide(reinterpret_cast<const wchar_t*>(text)))
                         : std::u16string();
    });
    if (!message.empty()) {
        process_.Messages.push_back(std::move(message));
    }
    return 0;
}

bool CVBRTrayWnd::ChangeIcon(TrayIconMode mode, const TrayIconContent& content) {
    return icon_.Update(Handle(), mode, content);
}

bool CVBRTrayWnd::ShowBalloon(std::u16string_view text, std::uint32_t milliseconds) {
    return icon_.ShowBalloon(Handle(), text, milliseconds);
}

bool CVBRTrayWnd::StartTimer(std::uintptr_t id, std::uint32_t milliseconds) {
    return SetTimer(Handle(), id, milliseconds, nullptr) != 0;
}

void CVBRTrayWnd::AdmitChoice(bool on) {
    ChangeWindowMessageFilterEx(Handle(), WM_COPYDATA, on ? MSGFLT_ALLOW : MSGFLT_RESET, nullptr);
}

void CVBRTrayWnd::ShowTrayMenu(TrayMenuPlace place) {
    if (isEnding_ || menu_->IsOpen()) {
        return;
    }
    if (const int command = menu_->Show(place, kTrayIconId)) {
        program_->Commands().Run(command);
    }
    program_->Clips().Forget();
}

// The message loop destroys the window when all loops above it have come back.
void CVBRTrayWnd::Close() {
    if (isEnding_) {
        return;
    }
    isEnding_ = true;
    program_->BeginEnd();
    EndModalLoops();
    StartTimer(kTimerEnd, kEndMs);
}

void CVBRTrayWnd::PostCommand(int command) {
    PostMessageW(Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void CVBRTrayWnd::ShowMessage(std::u16string_view text, MessageIcon icon, bool onTop) {
    if (process_.Settings.SoundOnEvents) {
        MessageBeep(MB_OK);
    }
    const UINT flags = icon == MessageIcon::Error ? MB_ICONERROR : MB_ICONWARNING;
    MessageBoxW(Handle(), Wide(std::u16string(text)),
                Wide(process_.Texts.LoadString(kStrProductName)),
                flags | (onTop ? MB_TOPMOST : 0U));
}

}  // namespace vbr

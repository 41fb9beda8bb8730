// SPDX-License-Identifier: MIT
#include "shell/win32/tray_window.h"

#include "base/text.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_icons.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"
#include "shell/win32/app_objects.h"
#include "web/link_language.h"

namespace vbr {
namespace {

constexpr DWORD kTrayStyle = 0x008D0000;
constexpr int kOutside = -100;  // left of and above every screen
constexpr DWORD kExitBalloonMs = 500;

UINT Registered(std::u16string_view name) {
    return RegisterWindowMessageW(Wide(name.data()));
}

// An elevated window still takes the choice of a target with fewer rights.
void AdmitCopyData() {
    using Filter = BOOL(WINAPI*)(UINT, DWORD);
    const auto filter = reinterpret_cast<Filter>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "ChangeWindowMessageFilter")));
    if (filter) {
        filter(WM_COPYDATA, MSGFLT_ADD);
    }
}

}  // namespace

CVBRTrayWnd::CVBRTrayWnd(const TrayContext& context)
    : context_(context),
      instanceSignal_(Registered(kMessageInstanceSignal)),
      taskbarCreated_(Registered(kMessageTaskbarCreated)),
      addMessage_(Registered(kMessageAddMessage)),
      mouseEvent_(Registered(kMessageMouseEvent)),
      session_(*this, context.TrayLog),
      sounds_(
          context.Locations.ProgramFolder,
          [&settings = context.Settings] { return settings.SoundOnEvents; }, context.TrayLog),
      icon_(context.Guard) {}

CVBRTrayWnd::~CVBRTrayWnd() {
    // The threads that this object joins wait for it.
    context_.Stop.Set();
    if (Handle()) {
        DestroyWindow(Handle());
    }
}

bool CVBRTrayWnd::Create() {
    const std::u16string title = Text(kStrProductName);
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
        {WM_ENDSESSION, &CVBRTrayWnd::OnEndSession},
        {WM_WTSSESSION_CHANGE, &CVBRTrayWnd::OnSessionChange},
        {WM_HOTKEY, &CVBRTrayWnd::OnHotKey},
        {WM_COMMAND, &CVBRTrayWnd::OnCommand},
        {WM_COPYDATA, &CVBRTrayWnd::OnCopyData},
        {WM_NOTIFY, &CVBRTrayWnd::OnNotify},
        {WM_ENTERIDLE, &CVBRTrayWnd::OnEnterIdle},
        {WM_MENUSELECT, &CVBRTrayWnd::OnMenuSelect},
        {kMsgInstallTrayIcon, &CVBRTrayWnd::OnInstallTrayIcon},
        {kMsgTrayNotify, &CVBRTrayWnd::OnTrayNotify},
        {kMsgQueryReady, &CVBRTrayWnd::OnQueryReady},
        {kMsgEditorState, &CVBRTrayWnd::OnEditorState},
        {kMsgUpdateResult, &CVBRTrayWnd::OnUpdateResult},
        {kMsgEditorEnded, &CVBRTrayWnd::OnEditorEnded},
        {kMsgGetPaneTitle, &CVBRTrayWnd::OnGetPaneTitle},
        {kMsgShowPane, &CVBRTrayWnd::OnShowPane},
        {kMsgInstallSpy, &CVBRTrayWnd::OnInstallSpy},
        {kMsgAllowWaitAgent, &CVBRTrayWnd::OnAllowWaitAgent},
        {kMsgCommandFromSelf, &CVBRTrayWnd::OnCommandFromSelf},
        {kMsgGetQueue, &CVBRTrayWnd::OnGetQueue},
        {kMsgHideTip, &CVBRTrayWnd::OnHideTip},
        {kMsgWaitError, &CVBRTrayWnd::OnWaitError},
        {kMsgShowMenuRequest, &CVBRTrayWnd::OnShowMenuRequest},
        {kMsgRightMenuCommand, &CVBRTrayWnd::OnRightMenuCommand},
        {kMsgLanguageChanged, &CVBRTrayWnd::OnLanguageChanged},
        {kMsgPaneBlink, &CVBRTrayWnd::OnPaneBlink},
        {kMsgGetPaneText, &CVBRTrayWnd::OnGetPaneText},
    };
    if (message == instanceSignal_) {
        return OnInstanceSignal(wParam);
    }
    if (message == taskbarCreated_) {
        icon_.StartInstallThread(Handle(), context_.Stop);
        return 0;
    }
    if (message == addMessage_) {
        return OnAddMessage(lParam);
    }
    if (message == mouseEvent_) {
        return OnMouseEvent();
    }
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CVBRTrayWnd::OnCreate(WPARAM, LPARAM) {
    CAppObjects::SetTrayWindow(Handle());
    CAppObjects::SetSounds(&sounds_);
    ApplyLanguage();
    AdmitCopyData();
    SetWindowIcons(Handle(), kIconProgram);
    road_ = std::make_unique<PhraseRoad>(
        PhraseRoad::Parts{context_.Settings, context_.Locations, context_.Access, context_.TrayLog,
                          CAppObjects::Messages(), context_.Texts, context_.Guard, context_.Stop,
                          context_.ForcedRoad, context_.TrayRooms.History},
        Handle());
    context_.TrayRooms.History.OnSpyStateChanged([this](bool runs) { AnnounceKeep(runs); });
    if (context_.CmdLine.NoInstall()) {
        CAppObjects::Messages().push_back(u"No install on launch. Flag specifided");
    } else {
        InstallService(startError_);
    }
    icon_.StartInstallThread(Handle(), context_.Stop);
    context_.TrayRooms.Tips.Create(Text(kStrDefaultMenuTip));
    Watch(kEventEditorEnded, EventReset::Automatic, ObjectAccess::World,
          [window = Handle()] { PostMessageW(window, kMsgEditorEnded, 0, 0); });
    if (context_.Settings.IsNewVersion()) {
        context_.TrayRooms.Companions.StartFirstRunAutostart();
    }
    sounds_.Start(context_.Stop);
    if (context_.Settings.AutoCheckForUpdates) {
        context_.TrayRooms.Updates.Schedule();
    }
    if (context_.Settings.ShowHistoryPaneOnStart) {
        context_.TrayRooms.Pane.Show(PaneShowMode::WithoutFocus);
    }
    SetWindowPos(Handle(), nullptr, kOutside, kOutside, 10, 10,
                 SWP_NOACTIVATE | SWP_NOZORDER | SWP_HIDEWINDOW);
    BeginSessionNotices(sessionNotify_, reinterpret_cast<WindowHandle>(Handle()), context_.TrayLog);
    StartWatchers();
    if (SetTimer(Handle(), kTimerLateWatchers, kLateWatchersMs, nullptr) == 0) {
        StartLateWatchers();
    }
    return 0;
}

void CVBRTrayWnd::StartWatchers() {
    const HWND window = Handle();
    Watch(kEventCommandCheckForUpdates, EventReset::Manual, ObjectAccess::Default,
          [window] { SendMessageW(window, WM_COMMAND, kCmdCheckForUpdates, 0); });
    if (context_.CmdLine.Edit()) {
        PostMessageW(window, WM_COMMAND, kCmdEditPhrases, 0);
    }
    if (context_.CmdLine.Cfu()) {
        PostMessageW(window, WM_COMMAND, kCmdCheckForUpdates, 0);
    }
    Watch(kEventEdit, EventReset::Manual, ObjectAccess::World,
          [window] { SendMessageW(window, WM_COMMAND, kCmdEditPhrases, 0); });
    Watch(kEventShowMenu, EventReset::Automatic, ObjectAccess::World,
          [window] { PostMessageW(window, kMsgShowMenuRequest, 0, 0); });
    if (context_.CmdLine.ShowMenu()) {
        PostMessageW(window, kMsgShowMenuRequest, 0, 0);
    }
    if (!context_.Settings.IsWelcomeAlreadyStarted()) {
        context_.TrayRooms.Companions.StartWelcome(u"/auto");
    }
}

void CVBRTrayWnd::StartLateWatchers() {
    const HWND window = Handle();
    Watch(kEventLangUiChanged, EventReset::Automatic, ObjectAccess::World,
          [window] { SendMessageW(window, kMsgLanguageChanged, 0, 0); });
    Watch(kEventCheckForUpdates, EventReset::Automatic, ObjectAccess::World,
          [window] { SendMessageW(window, WM_COMMAND, kCmdCheckForUpdates, 0); });
    Watch(kEventFloatPaneBlink, EventReset::Automatic, ObjectAccess::World,
          [window] { SendMessageW(window, kMsgPaneBlink, 0, 0); });
}

void CVBRTrayWnd::Watch(std::u16string_view event, EventReset reset, ObjectAccess access,
                        std::function<void()> onSignal) {
    auto watcher = std::make_unique<EventWatcher>();
    if (watcher->Start(event, reset, access, context_.Stop, std::move(onSignal))) {
        watchers_.push_back(std::move(watcher));
    } else {
        context_.TrayLog.LogError(Concat(u"Cannot watch the event ", event));
    }
}

LRESULT CVBRTrayWnd::OnDestroy(WPARAM, LPARAM) {
    context_.Stop.Set();
    road_->StopService();
    icon_.Delete(Handle());
    context_.TrayRooms.Pane.Close();
    if (context_.TrayRooms.History.IsSpyRunning()) {
        context_.TrayRooms.History.StopSpy();
    }
    EndSessionNotices(sessionNotify_, reinterpret_cast<WindowHandle>(Handle()), context_.TrayLog);
    CAppObjects::SetSounds(nullptr);
    CAppObjects::SetTrayWindow(nullptr);
    // However the window was closed, the process ends with it.
    PostQuitMessage(0);
    return 0;
}

LRESULT CVBRTrayWnd::OnTimer(WPARAM id, LPARAM) {
    KillTimer(Handle(), id);
    switch (id) {
        case kTimerPaneHover:
            if (lastHoveredCommand_ == kCmdTogglePane) {
                context_.TrayRooms.Pane.Blink();
            }
            break;
        case kTimerHideBalloon:
            HideTrayBalloon();
            break;
        case kTimerPhraseMenu:
            StartQuery(false);
            context_.TrayRooms.Pane.Show(PaneShowMode::BringBack);
            break;
        case kTimerLateWatchers:
            StartLateWatchers();
            break;
        default:
            break;
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnEndSession(WPARAM wParam, LPARAM lParam) {
    context_.TrayLog.Write(Concat(u"WM_ENDSESSION wParam=", wParam, u" lParam=", lParam));
    return 0;
}

LRESULT CVBRTrayWnd::OnSessionChange(WPARAM reason, LPARAM sessionId) {
    session_.OnWmWTSSessionChange(static_cast<std::uint32_t>(reason),
                                  static_cast<std::uint32_t>(sessionId));
    return 0;
}

void CVBRTrayWnd::AnnounceKeep(bool spyRuns) {
    keepObservers_.Announce([spyRuns](KeepObserver& observer) { observer.OnKeepChanged(spyRuns); });
}

void CVBRTrayWnd::AnnounceSessionEvent(std::uint32_t reason) {
    uiObservers_.Announce(
        [reason](UiObserver& observer) { observer.OnUiChanged(UiChange::Session, reason); });
}

LRESULT CVBRTrayWnd::OnInstanceSignal(WPARAM code) {
    if (code == kSignalAlreadyWorks) {
        if (!road_->IsServiceInstalled()) {
            std::u16string ignored;
            InstallService(ignored);
        }
        sounds_.PlayEventSound(EventSound::AlreadyWorks);
        UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, Text(kStrAlreadyWorks), true);
    } else if (code == kSignalExit) {
        UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, Text(kStrExiting), false);
        Sleep(kExitBalloonMs);
        PostMessageW(Handle(), WM_COMMAND, kCmdExit, 0);
    }
    return 0;
}

bool CVBRTrayWnd::InstallService(std::u16string& errorText) {
    const bool installed = road_->InstallService(errorText);
    context_.TrayRooms.History.StartSpyWithRetry();
    return installed;
}

// The texts come in the new language from now on; links follow it.
void CVBRTrayWnd::ApplyLanguage() {
    SetUseRuUrls(context_.Profile, context_.Settings.GetLanguageFileName(), context_.TrayLog);
}

}  // namespace vbr

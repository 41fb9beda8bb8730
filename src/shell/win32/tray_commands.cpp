// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "platform/win32/auto_foreground_window.h"
#include "platform/win32/elevation.h"
#include "platform/win32/menu_handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_sound_player.h"
#include "resources/resource_ids.h"
#include "shell/tray_links.h"
#include "shell/tray_menu.h"
#include "shell/tray_messages.h"
#include "shell/tray_texts.h"
#include "shell/win32/app_objects.h"
#include "shell/win32/tray_window.h"
#include "web/vbr_url.h"

// The icon in the notification area, its menu, and the commands.
namespace vbr {
namespace {

constexpr std::uint32_t kStartErrorBalloonMs = 10'000;

}  // namespace

LRESULT CVBRTrayWnd::OnInstallTrayIcon(WPARAM, LPARAM) {
    if (!UpdateTrayIcon(TrayIconMode::Add, {}, false)) {
        context_.TrayLog.Write(u"ERROR: cannot install tray icon");
        return 0;
    }
    sounds_.PlayEventSound(IsProcessElevated() ? EventSound::StartedElevated : EventSound::Started);
    if (!startError_.empty()) {
        ShowTrayBalloon(TrimLeft(startError_, u"\n"), kStartErrorBalloonMs);
        startError_.clear();
    }
    return 1;
}

LRESULT CVBRTrayWnd::OnTrayNotify(WPARAM, LPARAM mouseMessage) {
    if (mouseMessage == WM_LBUTTONUP || mouseMessage == WM_RBUTTONUP ||
        mouseMessage == NIN_BALLOONUSERCLICK) {
        DisplayTrayMenuAtCursor();
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnShowMenuRequest(WPARAM, LPARAM) {
    const CAutoForegroundWindow front(Handle());
    SetActiveWindow(Handle());
    MessageBeep(MB_ICONINFORMATION);
    DisplayTrayMenuAtCursor();
    return 0;
}

LRESULT CVBRTrayWnd::OnMenuSelect(WPARAM item, LPARAM menu) {
    if (road_->IsMenuShown()) {
        context_.TrayRooms.Tips.Hide();
        return 0;
    }
    lastHoveredCommand_ = (HIWORD(item) & MF_POPUP) != 0 ? 0U : LOWORD(item);
    context_.TrayRooms.Tips.OnMenuSelect(lastHoveredCommand_, HIWORD(item),
                                         static_cast<std::uintptr_t>(menu));
    if (lastHoveredCommand_ == kCmdTogglePane) {
        SetTimer(Handle(), kTimerPaneHover, kPaneHoverMs, nullptr);
    } else {
        KillTimer(Handle(), kTimerPaneHover);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnCommand(WPARAM command, LPARAM) {
    CVBRSettings& settings = context_.Settings;
    switch (const int id = LOWORD(command)) {
        case kCmdEnableService:
            ToggleService();
            break;
        case kCmdEditPhrases:
            context_.TrayRooms.Companions.StartEditor(false, {});
            break;
        case kCmdRereadPhrases:
            RereadPhrases(true);
            break;
        case kCmdCheckForUpdates:
            context_.TrayRooms.Updates.Check();
            break;
        case kCmdTogglePane:
            context_.TrayRooms.Pane.Show(PaneShowMode::Toggle);
            break;
        case kCmdWriteLog:
            settings.WriteLog = !context_.TrayLog.IsLogOn();
            if (settings.WriteLog) {
                context_.TrayLog.StartLog(context_.Locations.LogFile);
            } else {
                context_.TrayLog.StopLog();
            }
            settings.Save();
            break;
        case kCmdSounds:
            settings.SoundOnEvents = !settings.SoundOnEvents;
            settings.Save();
            if (settings.SoundOnEvents) {
                WinSoundPlayer().PlaySystemSound(kNotificationSound);
            }
            break;
        case kCmdKeepHistory:
            ToggleKeeping(false);
            break;
        case kCmdRekeepHistory:
            ToggleKeeping(true);
            break;
        case kCmdClearHistory:
            context_.TrayRooms.History.Clear();
            break;
        case kCmdSaveHistoryOnExit:
            settings.SaveClipboardHistory = !settings.SaveClipboardHistory;
            settings.Save();
            context_.TrayRooms.History.Save();
            break;
        case kCmdHistoryPaneOnStart:
            settings.ShowHistoryPaneOnStart = !settings.ShowHistoryPaneOnStart;
            settings.Save();
            break;
        case kCmdShowTrayMenu:
            DisplayTrayMenuAtCursor();
            break;
        case kCmdShowPhraseMenu:
            SetTimer(Handle(), kTimerPhraseMenu, kPhraseMenuMs, nullptr);
            break;
        case kCmdExit:
            DestroyWindow(Handle());
            break;
        case kCmdEmailToUs:
            SendMail(shellOpener_, reinterpret_cast<WindowHandle>(Handle()));
            break;
        default:
            OpenLink(id);
            break;
    }
    return 1;
}

void CVBRTrayWnd::OpenLink(int command) {
    const std::u16string link = LinkOfCommand(command);
    if (link.empty()) {
        context_.TrayLog.Write(Concat(u"Command ", command, u" is off"));
    } else {
        OpenUrl(shellOpener_, reinterpret_cast<WindowHandle>(Handle()), link);
    }
}

// Stops a spy that runs; starts one that doesn't, or any anew.
void CVBRTrayWnd::ToggleKeeping(bool anew) {
    const bool ran = IsSpyRunning();
    if (ran) {
        StopSpy();
    }
    if (!ran || anew) {
        StartSpy();
    }
    UpdateTrayIcon(TrayIconMode::Modify, {}, false);
    AnnounceKeep(IsSpyRunning());
}

void CVBRTrayWnd::ToggleService() {
    if (road_->IsServiceInstalled()) {
        road_->StopService();
    } else if (std::u16string error; !InstallService(error) && !error.empty()) {
        ShowMessage(u"ERROR\n\n" + error, MB_ICONERROR, false);
    }
    UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, {}, false);
}

void CVBRTrayWnd::RereadPhrases(bool balloon) {
    road_->LoadPhrases();
    UpdateTrayIcon(balloon ? TrayIconMode::ModifyWithBalloon : TrayIconMode::Modify, {}, false);
    if (!balloon) {
        if (context_.Settings.SoundOnEvents) {
            WinSoundPlayer().PlaySystemSound(kNotificationSound);
        }
        icon_.Blink(Handle(), context_.Stop);
    }
}

bool CVBRTrayWnd::UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning) {
    const TrayState state{road_->IsServiceInstalled(), IsProcessElevated(), road_->HotkeyName(),
                          road_->PhrasesFolder(), road_->CountPhrases()};
    return icon_.Update(Handle(), mode,
                        MakeTrayIconContent(state, balloonText, warning, context_.Texts));
}

void CVBRTrayWnd::ShowTrayBalloon(std::u16string_view text, std::uint32_t timeoutMs) {
    const bool shown =
        icon_.ShowBalloon(Handle(), text, !context_.Settings.SoundOnEvents, timeoutMs);
    if (shown && !text.empty()) {
        SetTimer(Handle(), kTimerHideBalloon, timeoutMs, nullptr);
    }
}

void CVBRTrayWnd::DisplayTrayMenuAtCursor() {
    POINT point{};
    GetCursorPos(&point);
    DisplayTrayMenu(point);
}

void CVBRTrayWnd::DisplayTrayMenu(POINT point) {
    const CVBRSettings& settings = context_.Settings;
    const TrayMenuState state{road_->IsServiceInstalled(), settings.SoundOnEvents,
                              context_.TrayLog.IsLogOn(), settings.ShowHistoryPaneOnStart,
                              road_->CountPhrases()};
    const UniqueMenu menu = MakePopupMenu(BuildTrayMenu(state, context_.Texts));
    EndMenu();
    SetForegroundWindow(Handle());
    const int command =
        TrackPopupMenu(menu.get(), TPM_RETURNCMD, point.x, point.y, 0, Handle(), nullptr);
    EndMenu();
    context_.TrayRooms.Tips.Hide();
    if (command != 0) {
        SendMessageW(Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
}

void CVBRTrayWnd::ShowMessage(const std::u16string& text, UINT flags, bool toFront) {
    const std::u16string name = Text(kStrProductName);
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_EXSTYLE);
    if (toFront) {
        // A taskbar button of its own, with the first line, draws the user's eye.
        const std::u16string title =
            Concat(name, u": ", std::u16string_view(text).substr(0, text.find(u'\n')));
        SetWindowLongPtrW(Handle(), GWL_EXSTYLE, style | WS_EX_APPWINDOW);
        SetWindowTextW(Handle(), Wide(title));
        SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED | SWP_SHOWWINDOW);
        flags &= ~UINT{MB_TOPMOST};
        FLASHWINFO flash{sizeof flash, Handle(), FLASHW_ALL, 3, 0};
        FlashWindowEx(&flash);
    }
    if (context_.Settings.SoundOnEvents) {
        MessageBeep(MB_OK);
    }
    MessageBoxW(Handle(), Wide(text), Wide(name), flags);
    if (toFront) {
        ShowWindow(Handle(), SW_HIDE);
        SetWindowLongPtrW(Handle(), GWL_EXSTYLE, style);
        SetWindowTextW(Handle(), Wide(name));
    }
}

}  // namespace vbr

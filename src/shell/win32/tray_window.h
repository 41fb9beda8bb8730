// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <string>
#include <vector>

#include "diagnostics/guarded_section.h"
#include "diagnostics/win32/file_log.h"
#include "exchange/session_change.h"
#include "exchange/win32/win_desktops.h"
#include "exchange/win32/wts_notify.h"
#include "platform/profile_store.h"
#include "platform/strings.h"
#include "platform/win32/event_watcher.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_shell_opener.h"
#include "platform/win32/window_base.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/double_press.h"
#include "shell/file_locations.h"
#include "shell/observers.h"
#include "shell/rooms.h"
#include "shell/win32/event_sound_thread.h"
#include "shell/win32/phrase_road.h"
#include "shell/win32/tray_icon.h"

namespace vbr {

// What the process has made before the tray window.
struct TrayContext {
    CVBRSettings& Settings;
    const ProfileStore& Profile;
    const FileLocations& Locations;
    FileAccess& Access;
    const Strings& Texts;
    FileLog& TrayLog;
    GuardedSections& Guard;
    const CVBRCmdLine& CmdLine;
    NamedEvent& Stop;
    std::optional<RoadKind> ForcedRoad;  // for tests
    Rooms TrayRooms;
};

// The hidden main window. It owns the icon, the hot key and the phrases, and is the one place to
// which threads and outside programs address their requests.
class CVBRTrayWnd : public WindowBase, private SessionActions {
  public:
    explicit CVBRTrayWnd(const TrayContext& context);
    ~CVBRTrayWnd() override;

    bool Create();

    // Windows that follow the spy and the user interface.
    ObserverList<KeepObserver>& KeepObservers() { return keepObservers_; }
    ObserverList<UiObserver>& UiObservers() { return uiObservers_; }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // Its life (tray_window.cpp)
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnEndSession(WPARAM wParam, LPARAM lParam);
    LRESULT OnSessionChange(WPARAM reason, LPARAM sessionId);
    LRESULT OnInstanceSignal(WPARAM code);
    bool IsSpyRunning() const override { return context_.TrayRooms.History.IsSpyRunning(); }
    bool StartSpy() override { return context_.TrayRooms.History.StartSpy(); }
    bool StopSpy() override { return context_.TrayRooms.History.StopSpy(); }
    void UpdateIcon() override { UpdateTrayIcon(TrayIconMode::Modify, {}, false); }
    void AnnounceKeep(bool spyRuns);
    void AnnounceSessionEvent(std::uint32_t reason) override;
    void ApplyLanguage();
    // The service, and the history beside it.
    bool InstallService(std::u16string& errorText);
    void Watch(std::u16string_view event, EventReset reset, ObjectAccess access,
               std::function<void()> onSignal);
    void StartWatchers();
    void StartLateWatchers();

    // Requests of threads and outside programs (tray_requests.cpp)
    LRESULT OnQueryReady(WPARAM query, LPARAM answer);
    LRESULT OnWaitError(WPARAM, LPARAM);
    LRESULT OnEditorState(WPARAM state, LPARAM);
    LRESULT OnEditorEnded(WPARAM, LPARAM);
    LRESULT OnUpdateResult(WPARAM, LPARAM result);
    LRESULT OnGetPaneTitle(WPARAM, LPARAM buffer);
    LRESULT OnGetPaneText(WPARAM, LPARAM buffer);
    LRESULT OnShowPane(WPARAM mode, LPARAM);
    LRESULT OnPaneBlink(WPARAM, LPARAM);
    LRESULT OnInstallSpy(WPARAM, LPARAM);
    LRESULT OnGetQueue(WPARAM, LPARAM);
    LRESULT OnAllowWaitAgent(WPARAM, LPARAM);
    LRESULT OnLanguageChanged(WPARAM, LPARAM);
    LRESULT OnHideTip(WPARAM, LPARAM);
    LRESULT OnEnterIdle(WPARAM reason, LPARAM window);
    LRESULT OnAddMessage(LPARAM text);
    LRESULT OnNotify(WPARAM control, LPARAM header);

    // The hot key, the menu and its choice (tray_requests.cpp)
    LRESULT OnHotKey(WPARAM id, LPARAM);
    LRESULT OnMouseEvent();
    LRESULT OnCommandFromSelf(WPARAM choice, LPARAM target);
    LRESULT OnCopyData(WPARAM, LPARAM block);
    LRESULT OnRightMenuCommand(WPARAM code, LPARAM item);
    void StartQuery(bool fromHotkey);
    bool CopyToSender(LPARAM buffer, const std::u16string& text);
    void React(std::int32_t choice, WindowHandle target);

    // The icon, its menu and the commands (tray_commands.cpp)
    LRESULT OnInstallTrayIcon(WPARAM, LPARAM);
    LRESULT OnTrayNotify(WPARAM, LPARAM mouseMessage);
    LRESULT OnShowMenuRequest(WPARAM, LPARAM);
    LRESULT OnMenuSelect(WPARAM item, LPARAM menu);
    LRESULT OnCommand(WPARAM command, LPARAM);
    void OpenLink(int command);
    void ToggleKeeping(bool anew);
    void ToggleService();
    void RereadPhrases(bool balloon);
    bool UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning);
    void ShowTrayBalloon(std::u16string_view text, std::uint32_t timeoutMs);
    void HideTrayBalloon() { ShowTrayBalloon({}, 0); }
    void DisplayTrayMenu(POINT point);
    void DisplayTrayMenuAtCursor();
    void ShowMessage(const std::u16string& text, UINT flags, bool toFront);

    std::u16string Text(int id) const { return context_.Texts.LoadString(id); }

    TrayContext context_;
    UINT instanceSignal_;
    UINT taskbarCreated_;
    UINT addMessage_;
    UINT mouseEvent_;
    WinClock clock_;
    WinDesktops desktops_;
    WinShellOpener shellOpener_;
    WinFaultCatcher faults_;
    DoublePress doublePress_;
    SessionWatch session_;
    CWtsNotify sessionNotify_;
    UINT lastHoveredCommand_ = 0;
    std::u16string startError_;  // why the service is off, until the icon has told it
    EventSoundThread sounds_;
    TrayIcon icon_;
    std::unique_ptr<PhraseRoad> road_;  // made with the window
    ObserverList<KeepObserver> keepObservers_;
    ObserverList<UiObserver> uiObservers_;
    std::vector<std::unique_ptr<EventWatcher>> watchers_;
};

}  // namespace vbr

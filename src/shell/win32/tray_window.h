// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <string>

#include "diagnostics/win32/file_log.h"
#include "platform/strings.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/window_base.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/double_press.h"
#include "shell/file_locations.h"
#include "shell/win32/event_watcher.h"
#include "shell/win32/phrase_road.h"
#include "shell/win32/tray_icon.h"

namespace vbr {

// What the process has made before the tray window.
struct TrayContext {
    CVBRSettings& Settings;
    const FileLocations& Locations;
    FileAccess& Access;
    const Strings& Texts;
    FileLog& TrayLog;
    const CVBRCmdLine& CmdLine;
    NamedEvent& Stop;
};

// The hidden main window. It owns the icon, the hot key, the phrases and the menu, and is the one
// place to which threads and outside programs address their requests.
class CVBRTrayWnd : public WindowBase {
  public:
    explicit CVBRTrayWnd(const TrayContext& context);
    ~CVBRTrayWnd() override;

    bool Create();

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // Messages
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnInstallTrayIcon(WPARAM, LPARAM);
    LRESULT OnTrayNotify(WPARAM, LPARAM mouseMessage);
    LRESULT OnCommandFromSelf(WPARAM choice, LPARAM target);
    LRESULT OnShowMenuRequest(WPARAM, LPARAM);
    LRESULT OnHotKey(WPARAM id, LPARAM);
    LRESULT OnCommand(WPARAM command, LPARAM);
    LRESULT OnInstanceSignal(WPARAM code);
    LRESULT OnTaskbarCreated();

    void ToggleService();
    void StartWatchers();
    bool UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning);
    void DisplayTrayMenu(POINT point);
    void DisplayTrayMenuAtCursor();
    void ShowMessage(const std::u16string& text, UINT flags);

    TrayContext context_;
    UINT instanceSignal_;
    UINT taskbarCreated_;
    WinClock clock_;
    MessageList messages_;
    DoublePress doublePress_;
    TrayIcon icon_;
    std::unique_ptr<PhraseRoad> road_;  // made with the window
    EventWatcher editWatcher_;
    EventWatcher showMenuWatcher_;
};

}  // namespace vbr

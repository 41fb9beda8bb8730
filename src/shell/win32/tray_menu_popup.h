// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <memory>
#include <string>

#include "menu/win32/command_tool_tip.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "shell/tray_menu.h"
#include "shell/tray_view.h"

namespace vbr {

// The tray menu on the screen, with its tips. The window that owns it passes the messages on that
// the functions are named for. Belongs to the main thread.
class TrayMenuPopup {
  public:
    // `owner` exists as long as this.
    TrayMenuPopup(HWND owner, TrayMenu& menu, CTrayMenuToolTip::Source tips, const Strings& texts,
                  const Clock& clock, Log& log);

    // Shows the menu at the mouse, or at the icon of that number if the system tells where it is.
    // The command that was chosen, 0 for none and while the menu is open already.
    int Show(TrayMenuPlace place, UINT icon);
    bool IsOpen() const { return open_ != nullptr; }

    void OnInitMenuPopup(HMENU menu);
    void OnMenuSelect(WPARAM wParam, LPARAM lParam);
    void OnEnterIdle(WPARAM reason, LPARAM window);
    // False for a timer that is not the tips'.
    bool OnTimer(WPARAM id);
    // The notices of a tip; true when it was moved.
    bool OnNotify(const NMHDR& notice);
    void HideTip() { tip_.Cancel(); }

  private:
    HWND owner_;
    TrayMenu& menu_;
    CTrayMenuToolTip tip_;
    HMENU open_ = nullptr;
    Log& log_;
};

}  // namespace vbr

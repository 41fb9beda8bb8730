// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <shellapi.h>
#include <string_view>

#include "diagnostics/guarded_section.h"
#include "shell/tray_texts.h"

namespace vbr {

// The icon in the notification area. Belongs to the main thread.
class TrayIcon {
  public:
    explicit TrayIcon(GuardedSections& guard) : guard_(guard) {}

    // Adds or changes the icon as the mode says; false when the shell refuses.
    bool Update(HWND window, TrayIconMode mode, const TrayIconContent& content);
    void Delete(HWND window);

    // Shows a balloon with the text, or takes it away for an empty one. False when the shell
    // refuses.
    bool ShowBalloon(HWND window, std::u16string_view text, std::uint32_t timeoutMs);

    // Another image in the icon's place, or the usual one again.
    void ShowBlinkImage(HWND window, bool second);

  private:
    bool Notify(DWORD message, NOTIFYICONDATAW& data);

    GuardedSections& guard_;
    NOTIFYICONDATAW data_{};
};

}  // namespace vbr

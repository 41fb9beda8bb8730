// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <shellapi.h>
#include <string>
#include <thread>

#include "diagnostics/guarded_section.h"
#include "platform/named_objects.h"
#include "shell/tray_texts.h"

namespace vbr {

// The icon in the notification area. Belongs to the main thread; its own threads only send
// messages and blink.
class TrayIcon {
  public:
    explicit TrayIcon(GuardedSections& guard) : guard_(guard) {}
    ~TrayIcon();
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    // Adds or changes the icon as the mode says; false when the shell refuses.
    bool Update(HWND window, TrayIconMode mode, const TrayIconContent& content);
    void Delete(HWND window);

    // Shows a balloon with the text, or takes it away for an empty one. False when the shell
    // refuses.
    bool ShowBalloon(HWND window, std::u16string_view text, bool silent, std::uint32_t timeoutMs);

    // Sends the install message until it is answered with a non-zero result: at logon the shell
    // may not be up yet. Every 2 seconds, 200 times, until the stop event is set. A thread that is
    // still trying is left at it.
    void StartInstallThread(HWND window, NamedEvent& stop);

    // Changes the icon to another and back, four times within two seconds.
    void Blink(HWND window, NamedEvent& stop);

  private:
    bool Notify(DWORD message, NOTIFYICONDATAW& data);

    GuardedSections& guard_;
    NOTIFYICONDATAW data_{};
    std::thread install_;
    std::atomic<bool> installing_ = false;
    std::thread blink_;
    std::atomic<bool> blinking_ = false;
};

}  // namespace vbr

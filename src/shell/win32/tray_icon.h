// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <shellapi.h>
#include <string>
#include <thread>

#include "platform/named_objects.h"

namespace vbr {

// How UpdateTrayIcon changes the icon.
enum class TrayIconMode { Add = 0, ModifyWithBalloon = 1, Modify = 2 };

// What the icon shows. An empty balloon text shows no balloon of its own in mode Add.
struct TrayIconContent {
    int IconId = 0;
    std::u16string Tip;
    std::u16string InfoTitle;
    std::u16string Info;
    bool Warning = false;
};

// The icon in the notification area.
class TrayIcon {
  public:
    ~TrayIcon();

    bool Update(HWND window, TrayIconMode mode, const TrayIconContent& content);
    void Delete(HWND window);

    // Sends the install message until it is answered with a non-zero result: at logon the shell
    // may not be up yet. Every 2 seconds, 200 times, until the stop event is set. A thread that is
    // still trying is left at it.
    void StartInstallThread(HWND window, NamedEvent& stop);

  private:
    NOTIFYICONDATAW data_{};
    std::thread install_;
    std::atomic<bool> installing_ = false;
};

}  // namespace vbr

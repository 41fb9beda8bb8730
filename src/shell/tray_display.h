// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "settings/settings.h"
#include "shell/tray_texts.h"
#include "shell/tray_view.h"

namespace vbr {

// Keeps the icon in the notification area true to the program's state. Belongs to the main thread.
class TrayDisplay {
  public:
    struct Collaborators {
        TrayView& View;
        std::function<TrayState()> State;
        const CVBRSettings& Settings;
        const Strings& Texts;
        EventSounds& Sounds;
        vbr::Log& Log;
    };

    explicit TrayDisplay(Collaborators with) : with_(std::move(with)) {}

    // Adds the icon with its sound and, the first time, a balloon that tells what went wrong at the
    // start. False when the system refuses.
    bool OnInstallTrayIcon();
    // The same, and again every two seconds, 200 times at most: at logon the shell may not be up.
    void InstallWithRetry();
    // The shell has started anew, or its icons changed their size: the one that may still be there
    // goes first.
    void OnTaskbarCreated();
    // A text for a balloon of its own, as soon as the icon is there and those before it were told.
    // Each text is told once.
    void TellAtStart(std::u16string_view text);

    // What the icon tells from its next update on.
    void SetHistoryNotSaved(bool value) { historyNotSaved_ = value; }

    bool UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText = {},
                        bool warning = false);
    void ShowTrayBalloon(std::u16string_view text, std::uint32_t milliseconds);
    void HideTrayBalloon();
    void DeleteIcon() { with_.View.DeleteIcon(); }
    // Changes the icon to another and back, four times within two seconds; once more from the start
    // when it is at it.
    void BlinkTrayIcon();

    // The timers of this class; false for any other.
    bool OnTimer(std::uintptr_t id);

  private:
    void OnRetry();
    void OnBlink();
    void TellStartText();

    Collaborators with_;
    std::vector<std::u16string> startTexts_;
    std::size_t startTextsTold_ = 0;
    bool isInstalled_ = false;
    bool tellsStartText_ = false;  // a balloon shows one
    bool historyNotSaved_ = false;
    int triesLeft_ = 0;
    int blinksLeft_ = 0;  // changes of the image
};

}  // namespace vbr

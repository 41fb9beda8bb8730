// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "shell/tray_texts.h"

namespace vbr {

enum class MessageIcon { Error, Warning };

// Where the tray menu opens.
enum class TrayMenuPlace { Mouse, Icon };

// What the hidden window does for the shell: the icon in the notification area, timers, message
// boxes, the menu. Belongs to the main thread.
class TrayView {
  public:
    virtual ~TrayView() = default;

    // Adds or changes the icon as the mode says; false when the system refuses.
    virtual bool ChangeIcon(TrayIconMode mode, const TrayIconContent& content) = 0;
    virtual void DeleteIcon() = 0;
    // The icon's second image, or the usual one again.
    virtual void ShowBlinkImage(bool second) = 0;
    // Shows a balloon with the text, or takes it away for an empty one; false when the system
    // refuses.
    virtual bool ShowBalloon(std::u16string_view text, std::uint32_t milliseconds) = 0;

    // Expires once, unless it is started anew before; false when the system has none.
    virtual bool StartTimer(std::uintptr_t id, std::uint32_t milliseconds) = 0;

    // Takes the choice of a target that has fewer rights, or takes it no longer.
    virtual void AdmitChoice(bool on) = 0;

    // Waits until the user has closed the box, which may stand above all other windows.
    virtual void ShowMessage(std::u16string_view text, MessageIcon icon, bool onTop = false) = 0;
    // The command that is chosen is carried out when the menu is gone. While it is open, no second
    // one opens.
    virtual void ShowTrayMenu(TrayMenuPlace place) = 0;
    // A command for later, from the message queue.
    virtual void PostCommand(int command) = 0;
    // The program ends; a menu or a dialog that is open closes first, as if it was cancelled.
    virtual void Close() = 0;
};

}  // namespace vbr

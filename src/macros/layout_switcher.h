// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/input_injector.h"
#include "platform/keyboard_layouts.h"
#include "platform/log.h"
#include "platform/target_input.h"
#include "platform/target_windows.h"

namespace vbr {

// The shortcuts of the system that switch to the next keyboard layout, numbered as its settings do.
enum class LayoutToggle { Unknown = 0, AltShift = 1, CtrlShift = 2, None = 3, GraveAccent = 4 };

// What the settings of the system mean.
LayoutToggle GetLayoutToggle(const LayoutToggleSetting& setting);

// One press of the shortcut; Alt+Shift where the settings name no other.
std::vector<KeyEvent> LayoutToggleEvents(LayoutToggle toggle, const InputInjector& input);

// Brings a window to another keyboard layout by pressing the shortcut of the system.
class LayoutSwitcher {
  public:
    struct Collaborators {
        InputInjector& Input;
        TargetInput& Keys;
        const KeyboardLayouts& Layouts;
        const DesktopWindows& Windows;
        TargetWindows& Targets;
        vbr::Clock& Clock;
        vbr::Log& Log;
    };

    explicit LayoutSwitcher(const Collaborators& with) : with_(with) {}

    bool IsInstalled(Lcid language) const;

    // With fewer than three layouts one press. Else as many as there are layouts at most, until
    // the window's thread has a layout of the language.
    void SwitchKeyboardLayout(Lcid language, WindowHandle window);

  private:
    InputState Press(TargetKeys& keys, Lcid language, WindowHandle window);
    bool HasLanguage(Lcid language, WindowHandle window) const;

    Collaborators with_;
};

}  // namespace vbr

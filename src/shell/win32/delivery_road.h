// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstddef>
#include <functional>
#include <optional>

#include "macros/actions.h"
#include "macros/command_delivery.h"
#include "macros/command_start.h"
#include "macros/delivery_host.h"
#include "macros/layout_switcher.h"
#include "macros/text_delivery.h"
#include "macros/win32/prompt_dialog_window.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_error_text.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_target_windows.h"
#include "settings/settings.h"

namespace vbr {

// The delivery of a choice put together. Belongs to the main thread.
class DeliveryRoad : private DeliveryHost {
  public:
    struct Parts {
        const CVBRSettings& Settings;
        const Strings& Texts;
        CVBRCommandTree& Tree;
        const MacroEngine& Macros;
        const RichMacros& Rich;
        RichTextEngine& RichText;
        ClipboardAccess& Clipboard;
        Log& RoadLog;
    };

    // What the clipboard's history and snapshot do for a delivery. A call that is empty is off.
    struct ClipboardCalls {
        std::function<void()> BeginOwnCopy;
        std::function<void()> EndOwnCopy;
        std::function<void()> Keep;
        std::function<void()> Restore;
        std::function<std::optional<ClipText>(std::size_t position)> HistoryItem;
    };

    DeliveryRoad(const Parts& parts, ClipboardCalls calls);

    CommandDelivery& Commands() { return delivery_; }
    ActionRunner& Runner() { return runner_; }
    TextDelivery& Text() { return text_; }

    // Puts back what the clipboard held at the hot key, as the program's own copy.
    void RestoreClipboard() override;

  private:
    void PlayEventSound(DeliverySound sound) override;
    void BeginOwnCopy() override;
    void EndOwnCopy() override;
    void KeepClipboard() override;
    std::optional<ClipText> HistoryItem(std::size_t position) const override;

    Parts parts_;
    ClipboardCalls calls_;
    WinClock clock_;
    WinLocale locale_;
    WinKeyboardLayouts layouts_;
    WinInputInjector input_;
    WinDesktopWindows windows_;
    WinTargetWindows targets_;
    WinProgramStarter starter_;
    WinErrorText errors_;
    WinPrompter prompter_;
    TextDelivery text_;
    LayoutSwitcher switcher_;
    CommandStart commands_;
    ActionRunner runner_;
    CommandDelivery delivery_;
};

}  // namespace vbr

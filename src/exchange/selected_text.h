// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "exchange/query.h"
#include "platform/ansi_text.h"
#include "platform/clipboard_access.h"
#include "platform/clipboard_snapshot.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/input_injector.h"
#include "platform/my_copy.h"
#include "platform/target_input.h"

namespace vbr {

// What is selected, with the state that a query has for it.
struct Selection {
    std::int32_t State = kSelTextFailed;
    std::u16string Text;
};

// Gets the selected text of a window of another program by making it copy. The clipboard gets its
// content back at once. Any thread may call.
class SelectedTextReader {
  public:
    // The most that a copy is waited for.
    static constexpr std::uint32_t kCopyMs = 400;

    struct Collaborators {
        ClipboardAccess& Clipboard;
        CClipboardSnapshot& Snapshot;
        const AnsiText& Ansi;
        InputInjector& Input;
        TargetInput& Keys;
        DesktopWindows& Windows;
        vbr::Clock& Clock;
        MyCopyGuard& OwnCopy;
        vbr::Log& Log;
        std::function<std::uint16_t()> HotkeyVk;          // what the user may still hold
        std::function<std::u16string()> TerminalClasses;  // further ones, of the user
    };

    explicit SelectedTextReader(Collaborators with) : with_(std::move(with)) {}

    // A target that says that nothing is selected, or whose clipboard couldn't be given back, gets
    // no keys; terminals get the message alone. The copy stays out of the history.
    Selection ExtractSelectedText(WindowHandle target);

    // Puts back what a copy that came too late, or that another program kept in use, has replaced.
    void TakeBackLateCopy();

  private:
    bool IsTerminal(WindowHandle target) const;
    bool LetCopy(WindowHandle target, bool answersMessages, bool takesKeys);
    bool CopyByKeys(WindowHandle target, std::uint32_t before);
    bool CopyByMessage(WindowHandle target, std::uint32_t before);
    bool WaitForChange(std::uint32_t before, std::uint32_t patienceMs);
    std::u16string TakeCopy();

    // A copy that was asked for and had not come.
    struct LateCopy {
        std::uint32_t Before;   // the clipboard's sequence number
        std::uint32_t Process;  // of the target
    };

    Collaborators with_;
    std::mutex mutex_;  // a late answer may come while the main thread asks
    std::optional<LateCopy> late_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>

#include "platform/ansi_text.h"
#include "platform/clipboard_access.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/input_injector.h"
#include "platform/my_copy.h"

namespace vbr {

// Gets the selected text of a window of another program by making it copy. Any thread may call.
class SelectedTextReader {
  public:
    struct Collaborators {
        ClipboardAccess& Clipboard;
        const AnsiText& Ansi;
        InputInjector& Input;
        DesktopWindows& Windows;
        vbr::Clock& Clock;
        MyCopyGuard& OwnCopy;
    };

    explicit SelectedTextReader(const Collaborators& with) : with_(with) {}

    // The selected text, empty when there is none. Blocks for at least 400 ms and leaves the copy
    // on the clipboard, but out of the history.
    std::u16string ExtractSelectedText(WindowHandle target);

    // While it isn't allowed the clipboard stays as it is and no text is selected.
    void AllowCopy(bool allowed) { mayCopy_ = allowed; }

  private:
    Collaborators with_;
    std::atomic<bool> mayCopy_ = true;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <utility>

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/input_injector.h"

namespace vbr {

// Gets the selected text of a window of another program by making it copy.
class SelectedTextReader {
  public:
    // `blockHistory` keeps the copy out of the clipboard history.
    SelectedTextReader(Clipboard& clipboard, InputInjector& input, DesktopWindows& windows,
                       Clock& clock, std::function<void()> blockHistory)
        : clipboard_(clipboard),
          input_(input),
          windows_(windows),
          clock_(clock),
          blockHistory_(std::move(blockHistory)) {}

    // The selected text, empty when there is none. Blocks for at least 400 ms and leaves the copy
    // on the clipboard.
    std::u16string ExtractSelectedText(WindowHandle target);

    // While it isn't allowed the clipboard stays as it is and no text is selected. Any thread.
    void AllowCopy(bool allowed) { mayCopy_ = allowed; }

  private:
    Clipboard& clipboard_;
    InputInjector& input_;
    DesktopWindows& windows_;
    Clock& clock_;
    std::function<void()> blockHistory_;
    std::atomic<bool> mayCopy_ = true;
};

}  // namespace vbr

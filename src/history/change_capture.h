// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "history/clipboard_capture.h"
#include "history/history_messages.h"

namespace vbr {

// Captures each content of the clipboard once. What can't be read yet is looked at again, so that
// nobody waits for a program that holds the clipboard or hangs. Belongs to the main thread.
class ChangeCapture {
  public:
    struct Collaborators {
        ClipboardCapture& Capture;
        const ClipboardAccess& Access;
        const vbr::Clock& Clock;
        std::function<void(std::unique_ptr<CCHItem>, HistoryChange)> OnItem;
        std::function<void(std::uint32_t milliseconds)> StartTimer;  // once, for OnTimer
        vbr::Log& Log;
    };

    explicit ChangeCapture(Collaborators with) : with_(std::move(with)) {}

    // The clipboard has changed, or `change` tells of what was there before.
    void OnChange(WindowHandle owner, HistoryChange change);
    void OnTimer();
    // Captures what has changed but wasn't told yet, or couldn't be read so far.
    void CaptureNow(WindowHandle owner);
    // What the clipboard holds now is none of the history's business.
    void SkipContent();

  private:
    struct Change {
        WindowHandle Owner = 0;
        HistoryChange What = HistoryChange::Captured;
        std::uint32_t Since = 0;  // ticks
        int Hangs = 0;            // how often the owner didn't answer
    };

    void Look();
    // How long to wait before the next look; nothing when the change counts as lost.
    std::optional<std::uint32_t> NextLook(CaptureOutcome outcome);

    Collaborators with_;
    std::optional<std::uint32_t> judged_;  // the number of the content that was looked at last
    std::optional<Change> pending_;
};

}  // namespace vbr

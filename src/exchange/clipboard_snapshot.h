// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/clipboard_access.h"
#include "platform/log.h"

namespace vbr {

// The whole content of the clipboard as it was when a query began. Belongs to the main thread.
class CClipboardSnapshot {
  public:
    // How long a program that holds the clipboard is waited for: a short time before the menu
    // appears, a long one at the end, since the user's data depends on it.
    static constexpr std::uint32_t kTakePatienceMs = 250;
    static constexpr std::uint32_t kRestorePatienceMs = 6000;

    CClipboardSnapshot(ClipboardAccess& clipboard, Log& log) : clipboard_(clipboard), log_(log) {}
    // Restores what is still to be put back.
    ~CClipboardSnapshot() { RestoreClipboardSnapshot(); }
    CClipboardSnapshot(const CClipboardSnapshot&) = delete;
    CClipboardSnapshot& operator=(const CClipboardSnapshot&) = delete;

    // Replaces what it held by every format of the clipboard, to be put back. False when another
    // program keeps the clipboard open, or its owner hangs: to empty it now would lose data.
    bool Take();

    // Puts the content back and lets go of it. Does nothing when there is none or when the
    // clipboard didn't change since Take. False when another program keeps the clipboard open; the
    // content then waits for the next call, which drops it if the clipboard changed in between.
    bool RestoreClipboardSnapshot();

    // What is on the clipboard now shall stay there: lets go of the content.
    void ClearRestore();

  private:
    // False when an owner that hangs ended it.
    bool ReadFormats(const ClipboardSession& session);
    void WriteFormats(ClipboardSession& session);
    void LogFormat(std::u16string_view what, std::uint32_t format, std::u16string_view name);

    ClipboardAccess& clipboard_;
    Log& log_;
    std::vector<ClipboardBlock> blocks_;
    bool bRestore_ = false;
    std::uint32_t takenAt_ = 0;  // the clipboard's sequence number
    std::optional<std::uint32_t> failedAt_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "history/history_item.h"
#include "platform/ansi_text.h"
#include "platform/bitmaps.h"
#include "platform/clipboard_access.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/my_copy.h"
#include "platform/program_windows.h"

namespace vbr {

// Which kinds of data the history keeps, in the order of the settings.
using KeptFormats = std::array<bool, 5>;  // text, RTF, bitmap, Kelp notes, HTML

// Makes an item of what another program put on the clipboard.
class ClipboardCapture {
  public:
    struct Collaborators {
        ClipboardAccess& Access;
        const ProgramWindows& Windows;
        const vbr::Clock& Clock;
        const MyCopyGuard& MyCopy;
        const KeptFormats& Kept;
        const AnsiText& Ansi;
        vbr::Bitmaps& Bitmaps;
        vbr::Log& Log;
    };

    explicit ClipboardCapture(Collaborators with);

    // Null, with a line in the log, when the change is not to be kept: it is the program's own, it
    // asks not to be seen, it can't be read, or its kind is off.
    std::unique_ptr<CCHItem> Capture(WindowHandle owner);

  private:
    bool IsSecret(const ClipboardSession& clipboard) const;
    bool ReadPrimary(const ClipboardSession& clipboard, CCHItem& item) const;
    bool ReadAnsi(const ClipboardSession& clipboard, CCHItem& item) const;
    void ReadAlternatives(const ClipboardSession& clipboard, CCHItem& item) const;
    std::optional<ItemBytes> ReadBytes(const ClipboardSession& clipboard,
                                       std::uint32_t format) const;
    std::optional<ItemBytes> ReadText(const ClipboardSession& clipboard,
                                      std::uint32_t format) const;
    void TakeSourceUrl(CCHItem& item, std::u16string_view text) const;
    bool IsKept(ItemFormat format) const;

    Collaborators with_;
    std::uint32_t rtf_;
    std::uint32_t html_;
    std::uint32_t kelpNotes_;
    std::array<std::uint32_t, 2> ignoredWith_;
    std::uint32_t mayBeKept_;
    // The "HTML Format" of the capture under way, which is wanted twice.
    mutable std::optional<ItemBytes> htmlBlock_;
};

}  // namespace vbr

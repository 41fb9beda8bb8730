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

enum class CaptureOutcome {
    Captured,
    NotKept,  // it asks not to be seen, its kind is off, or nothing of it is ever kept
    OwnCopy,  // the program's own
    // What can't be told or read now, but may be later.
    OwnUnderWay,  // the program is at the clipboard
    InUse,        // another program holds it
    OwnerHangs,
};

struct CaptureResult {
    CaptureOutcome Outcome = CaptureOutcome::NotKept;
    std::unique_ptr<CCHItem> Item;
    std::uint32_t Number = 0;  // of the clipboard's content that was looked at
};

// Makes an item of what another program put on the clipboard. It never waits for a program but for
// the owner's answer.
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

    // The owner has `patienceMs` to show that it answers messages.
    CaptureResult Capture(WindowHandle owner, std::uint32_t patienceMs);

  private:
    // The capture under way.
    struct Reading {
        const ClipboardSession& Clipboard;
        CCHItem& Item;
        std::uint32_t PatienceMs = 0;
        bool OwnerHangs = false;
        bool IsAnyOff = false;          // a format is there whose kind is off
        std::optional<ItemBytes> Html;  // wanted twice
        std::optional<ItemBytes> Text;  // looked at before its turn
    };

    bool IsSecret(Reading& reading) const;
    bool ReadPrimary(Reading& reading) const;
    bool ReadKelpNotes(Reading& reading) const;
    bool ReadBitmap(Reading& reading) const;
    bool ReadRich(Reading& reading) const;
    bool ReadUnicode(Reading& reading) const;
    bool ReadAnsi(Reading& reading) const;
    bool HasPlainText(Reading& reading) const;
    std::u16string AnsiTextOf(Reading& reading) const;
    void ReadAlternatives(Reading& reading) const;
    std::optional<ClipboardBlock> ReadBlock(Reading& reading, std::uint32_t format) const;
    std::optional<ItemBytes> ReadBytes(Reading& reading, std::uint32_t format) const;
    std::optional<ItemBytes> ReadText(Reading& reading, std::uint32_t format) const;
    void TakeSourceUrl(Reading& reading, std::u16string_view text) const;
    bool IsKept(ItemFormat format) const;
    // Whether the format is there and its kind is kept.
    bool IsWanted(Reading& reading, std::uint32_t format, ItemFormat kind) const;

    Collaborators with_;
    std::uint32_t rtf_;
    std::uint32_t html_;
    std::uint32_t kelpNotes_;
    std::array<std::uint32_t, 2> ignoredWith_;
    std::uint32_t mayBeKept_;
};

}  // namespace vbr

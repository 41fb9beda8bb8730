// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard_access.h"
#include "platform/log.h"

namespace vbr {

// The content of the clipboard, kept while the program borrows it. One thread at a time.
class CClipboardSnapshot {
  public:
    CClipboardSnapshot(ClipboardAccess& clipboard, Log& log) : clipboard_(clipboard), log_(log) {}
    // Restores what is still to be put back.
    ~CClipboardSnapshot() { RestoreClipboardSnapshot(); }
    CClipboardSnapshot(const CClipboardSnapshot&) = delete;
    CClipboardSnapshot& operator=(const CClipboardSnapshot&) = delete;

    // Replaces what it held by the content of the clipboard. False, and it holds nothing, when that
    // couldn't be given back whole: another program keeps the clipboard open, its owner hangs, or
    // only its owner can give the content.
    bool Take();

    // Puts the content in the place of what the open clipboard holds, and lets go of it.
    void PutBack(ClipboardSession& session);

    // What the clipboard holds with that sequence number came there by this program:
    // RestoreClipboardSnapshot replaces that and nothing newer.
    void NoteOwnContent(std::uint32_t sequenceNumber) { ownContent_ = sequenceNumber; }
    void NoteOwnContent() { NoteOwnContent(clipboard_.SequenceNumber()); }
    // Puts the content back and lets go of it; lets go of it alone when something else is on the
    // clipboard. False when another program keeps it open; the next call tries again.
    bool RestoreClipboardSnapshot();

    // What is on the clipboard now shall stay there: lets go of the content.
    void ClearRestore();

    // Its text, when it holds a content that has one.
    std::optional<std::u16string> Text() const;

  private:
    bool ReadFormats(const ClipboardSession& session);
    void LogFormat(std::u16string_view what, std::uint32_t format, std::u16string_view name);

    ClipboardAccess& clipboard_;
    Log& log_;
    std::vector<ClipboardBlock> blocks_;
    bool bRestore_ = false;
    std::optional<std::uint32_t> ownContent_;  // the clipboard's sequence number
};

}  // namespace vbr

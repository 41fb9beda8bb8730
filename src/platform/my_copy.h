// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/clipboard_access.h"
#include "platform/log.h"

namespace vbr {

// Tells the program's own changes of the clipboard from the user's, by the clipboard's number and
// owner. Everybody who writes to the clipboard holds a MyCopyScope meanwhile; any thread may call.
class MyCopyGuard {
  public:
    // `ownProcess` is the id of this process.
    MyCopyGuard(const ClipboardAccess& clipboard, std::uint32_t ownProcess, Log& log)
        : clipboard_(clipboard), ownProcess_(ownProcess), log_(log) {}
    MyCopyGuard(const MyCopyGuard&) = delete;
    MyCopyGuard& operator=(const MyCopyGuard&) = delete;

    // While the count isn't zero; what comes meanwhile can be judged later.
    bool IsMyCopy() const { return count_ != 0; }
    // Whether the program has put there what the clipboard holds now, or has let another one copy
    // it.
    bool IsOwnContent() const;

    void Add() { Note(++count_); }
    void Subtract() { Note(--count_); }
    // Takes 1 off a count that isn't zero.
    void EndBlock();

    // What came since the clipboard had that number is the program's, if it owns it.
    void NoteSince(std::uint32_t number);
    // Until ExpectNoCopy, what that process copies was asked for by the program.
    void ExpectCopyOf(std::uint32_t process) { expected_ = process; }
    void ExpectNoCopy() { expected_ = 0; }

    // The brackets of another program: what it copies between them is not the user's.
    void StartBracket() { count_ = 1; }
    void EndBracket();

  private:
    void Note(std::int32_t count);

    const ClipboardAccess& clipboard_;
    std::uint32_t ownProcess_;
    Log& log_;
    std::atomic<std::int32_t> count_ = 0;
    // The clipboard's number with a mark above it; 0 for none.
    std::atomic<std::uint64_t> own_ = 0;
    std::atomic<std::uint64_t> bracketed_ = 0;
    std::atomic<std::uint32_t> expected_ = 0;
};

// Changes of the clipboard are the program's own while this lives. It ends behind the session that
// changes it, which may count up as it closes.
class MyCopyScope {
  public:
    MyCopyScope(MyCopyGuard& guard, const ClipboardAccess& clipboard)
        : guard_(guard), number_(clipboard.SequenceNumber()) {
        guard_.Add();
    }
    ~MyCopyScope() {
        guard_.NoteSince(number_);
        guard_.Subtract();
    }
    MyCopyScope(const MyCopyScope&) = delete;
    MyCopyScope& operator=(const MyCopyScope&) = delete;

  private:
    MyCopyGuard& guard_;
    std::uint32_t number_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/clock.h"
#include "platform/log.h"

namespace vbr {

// Tells the program's own changes of the clipboard from the user's. Everybody who writes to the
// clipboard counts up around it, or blocks for a while; any thread may call.
class MyCopyGuard {
  public:
    static constexpr std::uint32_t kBlockMs = 3000;

    MyCopyGuard(const Clock& clock, Log& log) : clock_(clock), log_(log) {}
    MyCopyGuard(const MyCopyGuard&) = delete;
    MyCopyGuard& operator=(const MyCopyGuard&) = delete;

    // While the count isn't zero, or a block holds.
    bool IsMyCopy() const;

    void Add() { Note(++count_); }
    void Subtract() { Note(--count_); }
    // Repairs the count; ends a block too.
    void Set(std::int32_t count);

    // Holds for kBlockMs from now, since changes are told some time after they are made. Of blocks
    // that overlap the later end counts.
    void AsynBlockClipboardHandler();
    // Ends the block that holds; without one, takes 1 off a count that isn't zero.
    void EndBlock();

  private:
    void Note(std::int32_t count);

    const Clock& clock_;
    Log& log_;
    std::atomic<std::int32_t> count_ = 0;
    // The tick count at the block's start, with a mark above it; 0 without a block.
    mutable std::atomic<std::uint64_t> block_ = 0;
};

// Changes of the clipboard are the program's own while this lives.
class MyCopyScope {
  public:
    explicit MyCopyScope(MyCopyGuard& guard) : guard_(guard) { guard_.Add(); }
    ~MyCopyScope() { guard_.Subtract(); }
    MyCopyScope(const MyCopyScope&) = delete;
    MyCopyScope& operator=(const MyCopyScope&) = delete;

  private:
    MyCopyGuard& guard_;
};

}  // namespace vbr

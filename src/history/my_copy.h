// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/log.h"

namespace vbr {

// Tells the program's own changes of the clipboard from the user's: at any value but zero a change
// is its own. Any thread may call.
class MyCopyCount {
  public:
    explicit MyCopyCount(Log& log) : log_(log) {}

    bool IsMyCopy() const { return count_ != 0; }
    void Add() { Note(++count_); }
    void Subtract() { Note(--count_); }
    void Set(std::int32_t count) { count_.exchange(count); }

    // The end of a block that has been running for a while.
    void EndBlock() {
        const bool isMyCopy = IsMyCopy();
        log_.Write(Concat(u"WM_DELAY_UNLOCK received bIsMyCopy=", int{isMyCopy}));
        if (isMyCopy) {
            Subtract();
        }
    }

  private:
    void Note(std::int32_t count) {
        const std::u16string line = Concat(u"PULSEMY_COPY=", count);
        if (count < 0) {
            log_.LogError(line);
        } else {
            log_.Write(line);
        }
    }

    Log& log_;
    std::atomic<std::int32_t> count_ = 0;
};

// Changes of the clipboard are the program's own while this lives.
class MyCopyScope {
  public:
    explicit MyCopyScope(MyCopyCount& count) : count_(count) { count_.Add(); }
    ~MyCopyScope() { count_.Subtract(); }
    MyCopyScope(const MyCopyScope&) = delete;
    MyCopyScope& operator=(const MyCopyScope&) = delete;

  private:
    MyCopyCount& count_;
};

}  // namespace vbr

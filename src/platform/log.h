// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "base/text.h"

namespace vbr {

// Where every part of the program notes what it does. Callable from any thread; returns before
// the line is on the disk, and does nothing while the log is off.
class Log {
  public:
    virtual ~Log() = default;

    // False while nobody reads: a caller may then spare itself what only the log would tell.
    virtual bool IsLogOn() const { return true; }

    // One entry with date and prefix.
    virtual void Write(std::u16string_view text) = 0;

    // One entry of nothing but the text.
    virtual void WriteBare(std::u16string_view text) = 0;

    // The prefix of all threads' entries until it is cleared, cut to 199 characters. Without a
    // section the default prefix stands.
    virtual void SetLogSection(std::u16string_view name) = 0;
    void ClearLogSection() { SetLogSection({}); }

    void LogError(std::u16string_view text) { Write(Concat(u"ERROR: ", text)); }
    void LogWithPrefix(std::u16string_view text, std::u16string_view prefix) {
        Write(Concat(prefix, u": ", text));
    }
};

// A section of the log for as long as this lives.
class LogSection {
  public:
    LogSection(Log& log, std::u16string_view name) : log_(log) { log_.SetLogSection(name); }
    ~LogSection() { log_.ClearLogSection(); }
    LogSection(const LogSection&) = delete;
    LogSection& operator=(const LogSection&) = delete;

  private:
    Log& log_;
};

}  // namespace vbr

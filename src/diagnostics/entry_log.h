// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/log.h"

namespace vbr {

// Forms the entries of the log, at the call and not when they are written. Where they go is the
// derived class's affair.
class EntryLog : public Log {
  public:
    void Write(std::u16string_view text) override;
    void WriteBare(std::u16string_view text) override;
    void SetLogSection(std::u16string_view name) override;

    // Keeps a line with its date for FlushLogLines.
    void QueueLogLine(std::u16string_view text);

    // Writes all kept lines as one entry. They stay kept.
    void FlushLogLines();

    bool IsLogOn() const override = 0;

  protected:
    explicit EntryLog(const Clock& clock) : clock_(clock) {}

  private:
    // A whole entry with its line end; called from any thread, and must not wait for the disk.
    virtual void QueueEntry(std::u16string entry) = 0;

    const Clock& clock_;
    std::mutex mutex_;
    std::u16string section_;
    std::vector<std::u16string> lines_;
};

}  // namespace vbr

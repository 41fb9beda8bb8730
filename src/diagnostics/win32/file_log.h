// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "diagnostics/entry_log.h"
#include "platform/log_file.h"
#include "platform/win32/handle.h"

namespace vbr {

// The log file: UTF-16 with a byte order mark. One thread writes the entries, in their order; the
// file is shared with other processes by a named event. One thread starts and stops the log.
class FileLog : public EntryLog, public LogFile {
  public:
    explicit FileLog(const Clock& clock) : EntryLog(clock) {}
    ~FileLog() override { StopLog(); }

    bool StartLog(const std::u16string& path) override;
    // A file that another program holds delays it by a few seconds at most, whatever the number of
    // entries.
    void StopLog() override;
    bool IsLogOn() const override;
    std::u16string Path() const override;
    std::uint16_t Atom() const override;

  private:
    struct Entry {
        std::u16string Text;
        ULONGLONG QueuedAt = 0;  // ticks
    };

    bool Open(const std::u16string& path, bool& isGuardTaken);
    void QueueEntry(std::u16string entry) override;
    void WriteQueue();
    void WriteEntry(const std::u16string& path, const Entry& entry);
    UniqueHandle OpenPatiently(const std::u16string& path, const Entry& entry);
    void TurnOff();

    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Entry> queue_;
    std::u16string path_;
    ATOM atom_ = 0;
    UniqueHandle guard_;
    bool stopping_ = false;
    std::thread writer_;
    ULONGLONG gaveUpAt_ = 0;  // ticks; the writer's own
};

}  // namespace vbr

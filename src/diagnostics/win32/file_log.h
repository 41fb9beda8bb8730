// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "platform/clock.h"
#include "platform/log.h"
#include "platform/win32/handle.h"

namespace vbr {

// The log file: UTF-16 with a byte order mark. One thread writes the entries, in their order; the
// file is shared with other processes by a named event.
class FileLog : public Log {
  public:
    explicit FileLog(const Clock& clock) : clock_(clock) {}
    ~FileLog() override { StopLog(); }

    // False when the log is on already or its guard can't be made.
    bool StartLog(const std::u16string& path);

    // Writes what waits and turns the log off.
    void StopLog();
    bool IsLogOn() const;

    // Path and global atom of the running log, for the hook library; empty and 0 while it is off.
    std::u16string Path() const;
    std::uint16_t Atom() const;

    void Write(std::u16string_view text) override;

  private:
    void WriteQueue();
    void WriteEntry(const std::u16string& path, const std::u16string& entry);

    const Clock& clock_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::u16string> queue_;
    std::u16string path_;
    ATOM atom_ = 0;
    UniqueHandle guard_;
    bool stopping_ = false;
    std::thread writer_;
};

}  // namespace vbr

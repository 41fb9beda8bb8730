// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/log.h"

namespace vbr {

// Keeps the log's entries. Any thread may write and ask whether something stands there; the list is
// read when no thread writes any more.
class MemoryLog : public Log {
  public:
    std::vector<std::u16string> Lines;

    bool On = true;
    bool IsLogOn() const override { return On; }

    void Write(std::u16string_view text) override {
        const std::lock_guard lock(mutex_);
        Lines.emplace_back(text);
    }
    void WriteBare(std::u16string_view text) override { Write(text); }
    void SetLogSection(std::u16string_view) override {}

    // Whether an entry has that text in it.
    bool Tells(std::u16string_view text) const {
        const std::lock_guard lock(mutex_);
        return std::any_of(Lines.begin(), Lines.end(), [text](const std::u16string& line) {
            return line.find(text) != line.npos;
        });
    }

  private:
    mutable std::mutex mutex_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/log.h"

namespace vbr {

// Keeps the log's entries. Any thread may write; Lines is read when no thread writes any more.
class MemoryLog : public Log {
  public:
    std::vector<std::u16string> Lines;

    void Write(std::u16string_view text) override {
        const std::lock_guard lock(mutex_);
        Lines.emplace_back(text);
    }

  private:
    std::mutex mutex_;
};

}  // namespace vbr

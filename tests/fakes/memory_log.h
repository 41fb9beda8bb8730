// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/log.h"

namespace vbr {

// Keeps the log's entries, and beside them the section that each was written under. Any thread may
// write; both are read when no thread writes any more.
class MemoryLog : public Log {
  public:
    std::vector<std::u16string> Lines;
    std::vector<std::u16string> Sections;

    void Write(std::u16string_view text) override {
        const std::lock_guard lock(mutex_);
        Lines.emplace_back(text);
        Sections.push_back(section_);
    }
    void WriteBare(std::u16string_view text) override { Write(text); }
    void SetLogSection(std::u16string_view name) override {
        const std::lock_guard lock(mutex_);
        section_ = name;
    }

  private:
    std::mutex mutex_;
    std::u16string section_;
};

}  // namespace vbr

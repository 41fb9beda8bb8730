// SPDX-License-Identifier: MIT
#include "diagnostics/entry_log.h"

#include "diagnostics/log_entry.h"

namespace vbr {
namespace {

constexpr std::size_t kSectionMax = 199;

}  // namespace

void EntryLog::Write(std::u16string_view text) {
    if (text.empty() || !IsLogOn()) {
        return;
    }
    std::u16string prefix;
    {
        const std::lock_guard lock(mutex_);
        prefix = section_.empty() ? std::u16string(kDefaultLogPrefix) : section_;
    }
    QueueEntry(FormLogEntry(prefix, text, clock_.LocalTime()));
}

void EntryLog::WriteBare(std::u16string_view text) {
    if (!text.empty() && IsLogOn()) {
        QueueEntry(EndLogEntry(std::u16string(text)));
    }
}

void EntryLog::SetLogSection(std::u16string_view name) {
    const std::lock_guard lock(mutex_);
    section_ = CutUnits(name, kSectionMax);
}

void EntryLog::QueueLogLine(std::u16string_view text) {
    if (IsLogOn()) {
        std::u16string line = FormQueuedLine(text, clock_.LocalTime());
        const std::lock_guard lock(mutex_);
        lines_.push_back(std::move(line));
    }
}

void EntryLog::FlushLogLines() {
    std::u16string joined;
    {
        const std::lock_guard lock(mutex_);
        for (const std::u16string& line : lines_) {
            joined += joined.empty() ? u"" : u"\n";
            joined += line;
        }
    }
    WriteBare(joined);
}

}  // namespace vbr

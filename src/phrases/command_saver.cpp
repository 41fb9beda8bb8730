// SPDX-License-Identifier: MIT
#include "phrases/command_saver.h"

namespace vbr {

void CommandSaver::SaveCommandAsync(const VBRCommand& record) {
    worker_.Post([this, path = CommandFileOf(record), fields = FieldsOf(record)] {
        if (files_.WriteFields(path, fields).empty()) {
            uncounted_.erase(path);  // the record's count holds them
        }
    });
}

void CommandSaver::SaveUsageAsync(const VBRCommand& record) {
    worker_.Post([this, path = CommandFileOf(record), fields = FieldsOf(record),
                  utc = record.GetDateUsage()] {
        const std::int64_t earlier = uncounted_[path].Count;
        CountUses(path, {.Count = earlier + 1, .LastUtc = utc, .Record = fields});
    });
}

void CommandSaver::Flush() {
    RetryUses();
    worker_.Flush();
}

void CommandSaver::RetryUses() {
    worker_.Post([this] {
        for (const auto& [path, uses] : std::exchange(uncounted_, {})) {
            CountUses(path, uses);
        }
    });
}

void CommandSaver::CountUses(const std::filesystem::path& path, const UncountedUses& uses) {
    const UsageResult result = files_.CountUses(path, uses);
    if (result == UsageResult::Later) {
        uncounted_[path] = uses;
    } else {
        uncounted_.erase(path);
    }
    if (result == UsageResult::Other && onOther_) {
        onOther_();
    }
}

}  // namespace vbr

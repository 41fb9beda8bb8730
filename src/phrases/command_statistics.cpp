// SPDX-License-Identifier: MIT
#include "phrases/command_statistics.h"

namespace vbr {
namespace {

void CountKind(const VBRCommand& phrase, CommandStatistics& out) {
    switch (phrase.DataType) {
        case kDataTypeRtf:
            ++out.FormattedText;
            break;
        case kDataTypeExec:
            ++out.Exec;
            break;
        default:
            ++out.PlainText;
    }
}

}  // namespace

void CollectStatistics(const CVBRCommandTree& tree, const ExpandedLength& expandedLength,
                       CommandStatistics& out) {
    out = {};
    const CommandCounts counts = tree.CountCommands();
    out.AllRecords = counts.Total;
    out.EnabledRecords = counts.Enabled;
    out.Folders = tree.CountGroups();
    tree.WalkCommands([&](const VBRCommand& record, const VBRCommand*) {
        const auto usage = static_cast<std::uint64_t>(record.UsageCount);
        if (usage > out.MaximalUsage) {
            out.MaximalUsage = usage;
            out.MostUsed = record.Text;
        }
        if (!record.IsGroup()) {
            CountKind(record, out);
            out.AllUsage += usage;
            if (usage > 0 && !record.Cmd.empty()) {
                out.Characters += expandedLength(record) * usage;
            }
        }
        return true;
    });
}

}  // namespace vbr

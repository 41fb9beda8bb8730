// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "phrases/command_tree.h"

namespace vbr {

// What the user has and uses. Records are phrases and groups.
struct CommandStatistics {
    std::size_t AllRecords = 0;
    std::size_t EnabledRecords = 0;
    std::size_t Folders = 0;
    std::size_t PlainText = 0;
    std::size_t FormattedText = 0;
    std::size_t Exec = 0;
    std::uint64_t AllUsage = 0;      // of the phrases
    std::uint64_t MaximalUsage = 0;  // of any record
    std::u16string MostUsed;         // the title of the first record that has it
    std::uint64_t Characters = 0;    // that the phrases' uses have given
};

// The length of a phrase's text without selection and clipboard.
using ExpandedLength = std::function<std::size_t(const VBRCommand&)>;

// Asks for the length of used phrases only.
void CollectStatistics(const CVBRCommandTree& tree, const ExpandedLength& expandedLength,
                       CommandStatistics& out);

}  // namespace vbr

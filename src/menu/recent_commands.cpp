// SPDX-License-Identifier: MIT
#include "menu/recent_commands.h"

#include <algorithm>

namespace vbr {
namespace {

constexpr std::uint32_t kMostRecent = 5;
constexpr std::size_t kUsualRecent = 3;

}  // namespace

std::size_t RecentCapacity(std::uint32_t setting) {
    return setting >= 1 && setting <= kMostRecent ? setting : kUsualRecent;
}

void RecentCommands::Remember(const std::filesystem::path& file, std::size_t capacity) {
    Forget(file);
    files_.insert(files_.begin(), file);
    files_.resize(std::min(files_.size(), capacity));
}

void RecentCommands::Forget(const std::filesystem::path& file) {
    // The caller's path may be one of these.
    const std::filesystem::path::string_type gone = file.native();
    std::erase_if(files_, [&gone](const auto& kept) { return kept.native() == gone; });
}

}  // namespace vbr

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

void RecentCommands::Remember(std::uint32_t id, std::size_t capacity) {
    Forget(id);
    ids_.insert(ids_.begin(), id);
    ids_.resize(std::min(ids_.size(), capacity));
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vbr {

// Recent phrases that are kept for a setting: 1 to 5 as it is, any other value counts as 3.
std::size_t RecentCapacity(std::uint32_t setting);

// The phrases chosen last, the newest first. Not kept beyond the process.
class RecentCommands {
  public:
    // The id becomes the newest; no more than `capacity` stay.
    void Remember(std::uint32_t id, std::size_t capacity);
    // An id that nothing answers to any more.
    void Forget(std::uint32_t id) { std::erase(ids_, id); }

    const std::vector<std::uint32_t>& Ids() const { return ids_; }

  private:
    std::vector<std::uint32_t> ids_;
};

}  // namespace vbr

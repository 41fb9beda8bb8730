// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace vbr {

// Recent phrases that are kept for a setting: 1 to 5 as it is, any other value counts as 3.
std::size_t RecentCapacity(std::uint32_t setting);

// The files of the phrases chosen last, the newest first. Not kept beyond the process.
class RecentCommands {
  public:
    // The phrase becomes the newest; no more than `capacity` stay.
    void Remember(const std::filesystem::path& file, std::size_t capacity);
    // A phrase that is gone.
    void Forget(const std::filesystem::path& file);

    const std::vector<std::filesystem::path>& Files() const { return files_; }

  private:
    std::vector<std::filesystem::path> files_;
};

}  // namespace vbr

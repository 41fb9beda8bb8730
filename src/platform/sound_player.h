// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace vbr {

// Plays sounds; both calls return before the sound has ended.
class SoundPlayer {
  public:
    virtual ~SoundPlayer() = default;

    // A wave file; false when it can't be played.
    virtual bool PlayFile(const std::filesystem::path& path) = 0;
    // A sound of the system's sound scheme, for instance "SystemNotification".
    virtual void PlaySystemSound(std::u16string_view alias) = 0;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "platform/sound_player.h"

namespace vbr {

// Keeps what was to be played. Any thread may play; the list is read when none does any more.
class FakeSoundPlayer : public SoundPlayer {
  public:
    bool Fails = false;
    std::vector<std::string> Played;  // file names, and names of the system's sounds

    bool PlayFile(const std::filesystem::path& path) override {
        const std::lock_guard lock(mutex_);
        if (!Fails) {
            Played.push_back(path.filename().string());
        }
        return !Fails;
    }
    void PlaySystemSound(std::u16string_view alias) override {
        const std::lock_guard lock(mutex_);
        Played.emplace_back(alias.begin(), alias.end());
    }

  private:
    std::mutex mutex_;
};

}  // namespace vbr

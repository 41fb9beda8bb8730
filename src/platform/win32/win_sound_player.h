// SPDX-License-Identifier: MIT
#pragma once

#include "platform/sound_player.h"

namespace vbr {

class WinSoundPlayer : public SoundPlayer {
  public:
    bool PlayFile(const std::filesystem::path& path) override;
    void PlaySystemSound(std::u16string_view alias) override;
};

}  // namespace vbr

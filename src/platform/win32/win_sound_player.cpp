// SPDX-License-Identifier: MIT
#include "platform/win32/win_sound_player.h"

#include "platform/win32/windows.h"

#include <mmsystem.h>
#include <string>

#include "platform/win32/wide.h"

namespace vbr {

bool WinSoundPlayer::PlayFile(const std::filesystem::path& path) {
    return PlaySoundW(path.c_str(), nullptr, SND_FILENAME | SND_ASYNC) != 0;
}

void WinSoundPlayer::PlaySystemSound(std::u16string_view alias) {
    PlaySoundW(Wide(std::u16string(alias)), nullptr, SND_ALIAS | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace vbr

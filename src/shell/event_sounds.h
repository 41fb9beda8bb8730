// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/log.h"
#include "platform/sound_player.h"

namespace vbr {

// Events that have a sound, each a wave file in the program folder.
enum class EventSound {
    TextInserted = 0,
    ProgramLaunched = 1,
    ClipKept = 2,
    MenuRequested = 3,
    Started = 4,
    StartedElevated = 5,
    AlreadyWorks = 6,
};

// The sound that a tip or a toggle plays from the system's scheme.
inline constexpr std::u16string_view kNotificationSound = u"SystemNotification";

// Plays the file of a sound type; a type outside 0 to 6 and a missing file are logged as errors.
void PlaySoundOfType(int type, std::u16string_view programFolder, SoundPlayer& player, Log& log);

}  // namespace vbr

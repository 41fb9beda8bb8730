// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "platform/log.h"
#include "platform/serial_worker.h"
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

// Plays the event sounds without making anybody wait. Of two sounds in quick succession the first
// may be lost. Its destructor waits for the sound that is being started.
class EventSounds {
  public:
    struct Collaborators {
        std::u16string ProgramFolder;  // ends in a backslash
        std::function<bool()> IsOn;    // asked at each sound, on the caller's thread
        SoundPlayer& Player;
        vbr::Log& Log;
    };

    explicit EventSounds(Collaborators with) : with_(std::move(with)) {}

    void PlayEventSound(EventSound sound);
    // A sound of the system's scheme, when sounds are on.
    void PlayNotification();
    // Waits until what was asked for has been started.
    void Flush() { worker_.Flush(); }

  private:
    Collaborators with_;
    std::atomic<int> asked_ = -1;  // the type that waits to be played
    SerialWorker worker_;
};

}  // namespace vbr

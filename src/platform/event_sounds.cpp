// SPDX-License-Identifier: MIT
#include "platform/event_sounds.h"

#include <filesystem>
#include <iterator>
#include <system_error>

namespace vbr {
namespace {

// In the order of EventSound.
constexpr std::u16string_view kFiles[] = {u"kbd.wav",         u"launch.wav", u"paper.wav",
                                          u"menu.wav",        u"start.wav",  u"start_as_admin.wav",
                                          u"already_work.wav"};

}  // namespace

void PlaySoundOfType(int type, std::u16string_view programFolder, SoundPlayer& player, Log& log) {
    if (type < 0 || type >= static_cast<int>(std::size(kFiles))) {
        log.Write(u"ERROR: Invalid sound type");
        return;
    }
    const std::filesystem::path file = Concat(programFolder, kFiles[type]);
    std::error_code ignored;
    if (!player.PlayFile(file) && !std::filesystem::exists(file, ignored)) {
        log.LogError(Concat(u"Sound file not found: ", file.u16string()));
    }
}

void EventSounds::PlayEventSound(EventSound sound) {
    if (!with_.IsOn()) {
        return;
    }
    // A sound that still waits gives way to this one.
    if (asked_.exchange(static_cast<int>(sound)) < 0) {
        worker_.Post([this] {
            PlaySoundOfType(asked_.exchange(-1), with_.ProgramFolder, with_.Player, with_.Log);
        });
    }
}

void EventSounds::PlayNotification() {
    if (with_.IsOn()) {
        with_.Player.PlaySystemSound(kNotificationSound);
    }
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/event_sounds.h"

#include <gtest/gtest.h>

#include "fakes/fake_sound_player.h"
#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(EventSounds, MissingFilesAndUnknownTypesAreErrorsAndABrokenDeviceIsNot) {
    const TempFolder folder;
    folder.Write("start.wav", "");
    const std::u16string program = folder.Path().u16string() + u"/";
    FakeSoundPlayer player;
    MemoryLog log;
    PlaySoundOfType(static_cast<int>(EventSound::Started), program, player, log);
    EXPECT_EQ(player.Played, std::vector<std::string>{"start.wav"});
    player.Fails = true;
    PlaySoundOfType(static_cast<int>(EventSound::Started), program, player, log);
    EXPECT_TRUE(log.Lines.empty());
    PlaySoundOfType(static_cast<int>(EventSound::AlreadyWorks), program, player, log);
    PlaySoundOfType(7, program, player, log);
    PlaySoundOfType(-1, program, player, log);
    EXPECT_EQ(log.Lines, (std::vector<std::u16string>{
                             u"ERROR: Sound file not found: " + program + u"already_work.wav",
                             u"ERROR: Invalid sound type", u"ERROR: Invalid sound type"}));
}

TEST(EventSounds, AreHeardWhileTheSettingIsOn) {
    FakeSoundPlayer player;
    MemoryLog log;
    bool on = true;
    EventSounds sounds(
        {.ProgramFolder = u"", .IsOn = [&] { return on; }, .Player = player, .Log = log});
    for (const EventSound sound : {EventSound::MenuRequested, EventSound::ClipKept}) {
        sounds.PlayEventSound(sound);
        sounds.Flush();
    }
    sounds.PlayNotification();
    on = false;
    sounds.PlayEventSound(EventSound::Started);
    sounds.PlayNotification();
    sounds.Flush();
    EXPECT_EQ(player.Played,
              (std::vector<std::string>{"menu.wav", "paper.wav", "SystemNotification"}));
}

}  // namespace
}  // namespace vbr

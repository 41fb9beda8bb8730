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
    FakeSoundPlayer player;
    MemoryLog log;
    const auto play = [&](int type) {
        PlaySoundOfType(type, folder.Path().u16string() + u"/", player, log);
    };
    play(static_cast<int>(EventSound::Started));
    EXPECT_EQ(player.Played, std::vector<std::string>{"start.wav"});
    player.Fails = true;
    play(static_cast<int>(EventSound::Started));
    EXPECT_TRUE(log.Lines.empty());
    for (const int type : {static_cast<int>(EventSound::AlreadyWorks), 7, -1}) {
        play(type);
    }
    EXPECT_EQ(log.Lines.size(), 3U);
}

}  // namespace
}  // namespace vbr

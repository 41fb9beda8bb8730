// SPDX-License-Identifier: MIT
#include "shell/event_sounds.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

// Plays what exists.
class FakePlayer : public SoundPlayer {
  public:
    bool PlayFile(const std::filesystem::path& path) override {
        if (Broken || !std::filesystem::exists(path)) {
            return false;
        }
        Played.push_back(path.filename().string());
        return true;
    }
    void PlaySystemSound(std::u16string_view) override {}

    bool Broken = false;
    std::vector<std::string> Played;
};

TEST(EventSounds, MissingFilesAndUnknownTypesAreErrorsAndABrokenDeviceIsNot) {
    const TempFolder folder;
    folder.Write("start.wav", "");
    const std::u16string program = folder.Path().u16string() + u"/";
    FakePlayer player;
    MemoryLog log;
    PlaySoundOfType(static_cast<int>(EventSound::Started), program, player, log);
    EXPECT_EQ(player.Played, std::vector<std::string>{"start.wav"});
    player.Broken = true;
    PlaySoundOfType(static_cast<int>(EventSound::Started), program, player, log);
    EXPECT_TRUE(log.Lines.empty());
    PlaySoundOfType(static_cast<int>(EventSound::AlreadyWorks), program, player, log);
    PlaySoundOfType(7, program, player, log);
    PlaySoundOfType(-1, program, player, log);
    EXPECT_EQ(log.Lines, (std::vector<std::u16string>{
                             u"ERROR: Sound file not found: " + program + u"already_work.wav",
                             u"ERROR: Invalid sound type", u"ERROR: Invalid sound type"}));
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_sound_player.h"

#include "platform/win32/windows.h"

#include <mmsystem.h>
#include <string>

#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

// Stays loaded with the first sound: one may still be playing.
bool Play(const wchar_t* name, DWORD flags) {
    static const HMODULE library = LoadSystemLibrary(L"winmm.dll").release();
    const auto play = FunctionOf<decltype(&PlaySoundW)>(library, "PlaySoundW");
    return play && play(name, nullptr, flags);
}

}  // namespace

bool WinSoundPlayer::PlayFile(const std::filesystem::path& path) {
    return Play(path.c_str(), SND_FILENAME | SND_ASYNC);
}

void WinSoundPlayer::PlaySystemSound(std::u16string_view alias) {
    Play(Wide(std::u16string(alias)), SND_ALIAS | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace vbr

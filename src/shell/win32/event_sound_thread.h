// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "platform/log.h"
#include "platform/named_objects.h"
#include "platform/win32/handle.h"
#include "platform/win32/win_sound_player.h"
#include "shell/event_sounds.h"

namespace vbr {

// Plays the event sounds on a thread of below-normal priority. Of two sounds in quick succession
// the first may be lost.
class EventSoundThread {
  public:
    // `isOn` is asked at each sound, on the thread.
    EventSoundThread(std::u16string programFolder, std::function<bool()> isOn, Log& log)
        : programFolder_(std::move(programFolder)), isOn_(std::move(isOn)), log_(log) {}
    ~EventSoundThread();
    EventSoundThread(const EventSoundThread&) = delete;
    EventSoundThread& operator=(const EventSoundThread&) = delete;

    // The thread ends when the stop event is set.
    void Start(NamedEvent& stop);

    // Never blocks; without a running thread nothing is heard.
    void PlayEventSound(EventSound sound);

  private:
    void Run(HANDLE stop);

    std::u16string programFolder_;
    std::function<bool()> isOn_;
    Log& log_;
    WinSoundPlayer player_;
    std::atomic<int> selector_ = 0;
    UniqueHandle requested_;
    std::thread thread_;
};

}  // namespace vbr

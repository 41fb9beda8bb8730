// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <functional>
#include <string_view>
#include <thread>

#include "platform/win32/win_named_objects.h"

namespace vbr {

// Waits for a named event on a thread of its own and calls `onSignal` there at each signal, until
// the stop event is set. The event exists as long as the watcher.
class EventWatcher {
  public:
    EventWatcher() = default;
    ~EventWatcher();
    EventWatcher(const EventWatcher&) = delete;
    EventWatcher& operator=(const EventWatcher&) = delete;

    // False when the event or the thread can't be made; the program then runs without the signal.
    bool Start(std::u16string_view name, EventReset reset, ObjectAccess access, NamedEvent& stop,
               std::function<void()> onSignal);

  private:
    void Watch(const std::function<void()>& onSignal);

    std::unique_ptr<NamedEvent> event_;
    HANDLE stop_ = nullptr;
    std::thread thread_;
};

}  // namespace vbr

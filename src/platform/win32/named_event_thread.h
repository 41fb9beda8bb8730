// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <functional>
#include <list>
#include <mutex>
#include <string_view>
#include <thread>

#include "platform/log.h"
#include "platform/win32/win_named_objects.h"

namespace vbr {

// Waits for named events, all on one thread, and calls at each signal. Start and Join are the main
// thread's.
class NamedEventThread {
  public:
    // The thread ends when the stop event is set.
    NamedEventThread(WinNamedObjects& objects, NamedEvent& stop, Log& log);
    ~NamedEventThread() { Join(); }
    NamedEventThread(const NamedEventThread&) = delete;
    NamedEventThread& operator=(const NamedEventThread&) = delete;

    // Makes the event, which is there from now on; signals that come before Start are not lost.
    // `onSignal` runs on the thread and must not wait for the main thread. False when the event
    // can't be had: the program runs without the signal.
    bool Watch(std::u16string_view name, EventReset reset, ObjectAccess access,
               std::function<void()> onSignal);

    void Start();
    // Waits for the thread's end and closes the events. The stop event must be set.
    void Join();

  private:
    struct Watched {
        std::unique_ptr<NamedEvent> Event;
        std::function<void()> OnSignal;
    };

    void Run();

    NamedObjects& objects_;
    HANDLE stop_;
    Log& log_;
    WinNamedEvent changed_;  // the list has grown
    std::mutex mutex_;       // of the list
    std::list<Watched> watched_;
    std::thread thread_;
};

}  // namespace vbr

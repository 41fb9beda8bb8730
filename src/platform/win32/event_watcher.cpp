// SPDX-License-Identifier: MIT
#include "platform/win32/event_watcher.h"

#include <system_error>

namespace vbr {
namespace {

HANDLE HandleOf(NamedEvent& event) {
    return static_cast<WinNamedEvent&>(event).Get();
}

}  // namespace

EventWatcher::~EventWatcher() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

bool EventWatcher::Start(std::u16string_view name, EventReset reset, ObjectAccess access,
                         NamedEvent& stop, std::function<void()> onSignal) {
    WinNamedObjects objects;
    NamedObjects& events = objects;
    event_ = events.Create(name, reset, access);
    if (!event_) {
        return false;
    }
    stop_ = HandleOf(stop);
    try {
        thread_ = std::thread([this, call = std::move(onSignal)] { Watch(call); });
    } catch (const std::system_error&) {
        event_.reset();
        return false;
    }
    return true;
}

void EventWatcher::Watch(const std::function<void()>& onSignal) {
    const HANDLE handles[] = {stop_, HandleOf(*event_)};
    while (WaitForMultipleObjects(2, handles, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        event_->Reset();
        onSignal();
    }
}

}  // namespace vbr

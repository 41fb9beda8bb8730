// SPDX-License-Identifier: MIT
#include "platform/win32/named_event_thread.h"

#include <system_error>
#include <vector>

namespace vbr {
namespace {

HANDLE HandleOf(NamedEvent& event) {
    return static_cast<WinNamedEvent&>(event).Get();
}

}  // namespace

NamedEventThread::NamedEventThread(WinNamedObjects& objects, NamedEvent& stop, Log& log)
    : objects_(objects),
      stop_(HandleOf(stop)),
      log_(log),
      changed_(UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr))) {}

bool NamedEventThread::Watch(std::u16string_view name, EventReset reset, ObjectAccess access,
                             std::function<void()> onSignal) {
    std::unique_ptr<NamedEvent> event = objects_.Create(name, reset, access);
    if (!event && access == ObjectAccess::World) {
        event = objects_.Create(name, reset, ObjectAccess::Default);
    }
    if (!event) {
        return false;
    }
    {
        const std::lock_guard lock(mutex_);
        watched_.push_back({std::move(event), std::move(onSignal)});
    }
    changed_.Set();
    return true;
}

void NamedEventThread::Start() {
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        log_.LogError(u"Cannot start the thread that watches events");
    }
}

void NamedEventThread::Join() {
    if (thread_.joinable()) {
        thread_.join();
    }
    watched_.clear();
}

void NamedEventThread::Run() {
    constexpr DWORD kFirstWatched = WAIT_OBJECT_0 + 2;
    while (true) {
        std::vector<HANDLE> handles = {stop_, changed_.Get()};
        std::vector<Watched*> watched;
        {
            const std::lock_guard lock(mutex_);
            for (Watched& each : watched_) {
                handles.push_back(HandleOf(*each.Event));
                watched.push_back(&each);
            }
        }
        const DWORD woken = WaitForMultipleObjects(static_cast<DWORD>(handles.size()),
                                                   handles.data(), FALSE, INFINITE);
        if (woken >= kFirstWatched && woken < kFirstWatched + watched.size()) {
            Watched& signalled = *watched[woken - kFirstWatched];
            signalled.Event->Reset();
            signalled.OnSignal();
        } else if (woken != WAIT_OBJECT_0 + 1) {
            return;
        }
    }
}

}  // namespace vbr

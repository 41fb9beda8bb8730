// SPDX-License-Identifier: MIT
#include "shell/win32/event_sound_thread.h"

#include <system_error>

#include "platform/win32/win_named_objects.h"

namespace vbr {
namespace {

constexpr DWORD kResetRetryMs = 500;

}  // namespace

EventSoundThread::~EventSoundThread() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

void EventSoundThread::Start(NamedEvent& stop) {
    requested_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!requested_) {
        return;
    }
    const HANDLE stopHandle = static_cast<WinNamedEvent&>(stop).Get();
    try {
        thread_ = std::thread([this, stopHandle] { Run(stopHandle); });
    } catch (const std::system_error&) {
        log_.LogError(u"Cannot start the sound thread");
    }
}

void EventSoundThread::PlayEventSound(EventSound sound) {
    selector_ = static_cast<int>(sound);
    if (requested_) {
        SetEvent(requested_.get());
    }
}

void EventSoundThread::Run(HANDLE stop) {
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_BELOW_NORMAL);
    const HANDLE handles[] = {stop, requested_.get()};
    DWORD result = 0;
    while ((result = WaitForMultipleObjects(2, handles, FALSE, INFINITE)) != WAIT_OBJECT_0) {
        if (result != WAIT_OBJECT_0 + 1) {
            log_.Write(u"ERROR: default on switch");
            return;
        }
        if (isOn_()) {
            PlaySoundOfType(selector_, programFolder_, player_, log_);
        }
        while (!ResetEvent(requested_.get()) &&
               WaitForSingleObject(stop, kResetRetryMs) == WAIT_TIMEOUT) {
        }
    }
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/win32/forced_end.h"

#include <algorithm>
#include <system_error>

#include "shell/instance_control.h"

namespace vbr {
namespace {

constexpr DWORD kUntilSaveMs = 4000;
constexpr DWORD kUntilEndMs = 1000;  // from then on
constexpr int kMostWaits = 16;       // for files that are being written

UniqueHandle ThisThread() {
    HANDLE handle = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &handle, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    return UniqueHandle(handle);
}

UniqueHandle MakeEvent() {
    return UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

}  // namespace

ForcedEnd::ForcedEnd(Log& log)
    : log_(log), mainThread_(ThisThread()), ended_(MakeEvent()), saved_(MakeEvent()) {}

ForcedEnd::~ForcedEnd() {
    SetEvent(ended_.get());
    if (thread_.joinable()) {
        thread_.join();
    }
}

void ForcedEnd::Begin() {
    std::call_once(begun_, [this] {
        try {
            thread_ = std::thread([this] { Run(); });
        } catch (const std::system_error&) {
            log_.LogError(u"Cannot start the thread that bounds the time of the end");
        }
    });
}

void ForcedEnd::Run() {
    if (WaitForSingleObject(ended_.get(), kUntilSaveMs) == WAIT_OBJECT_0) {
        return;
    }
    if (!handedOver_) {
        // It may hang as well, on what the main thread holds.
        std::thread([this] { SaveRest(); }).detach();
    }
    const HANDLE handles[] = {ended_.get(), saved_.get()};
    DWORD woken = WAIT_TIMEOUT;
    for (int i = 0; i < kMostWaits && woken == WAIT_TIMEOUT && (i == 0 || IsWriting()); ++i) {
        woken = WaitForMultipleObjects(2, handles, FALSE, kUntilEndMs);
    }
    if (woken != WAIT_OBJECT_0) {
        TerminateProcess(GetCurrentProcess(), kExitForced);
    }
}

bool ForcedEnd::IsWriting() const {
    return handedOver_ &&
           std::ranges::any_of(savers_, [](const auto& busy) { return busy->load(); });
}

void ForcedEnd::SaveRest() {
    // It would change what is saved, should it come round just now.
    SuspendThread(mainThread_.get());
    if (handedOver_) {
        ResumeThread(mainThread_.get());
        return;
    }
    saveRest_();
    log_.LogError(u"The program hangs; its end is forced");
    SetEvent(saved_.get());
}

}  // namespace vbr

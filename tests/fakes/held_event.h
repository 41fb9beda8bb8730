// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <thread>

#include "platform/named_objects.h"

namespace vbr {

// An event, set at first, for which nobody waits long. Any thread may use it.
class HeldEvent : public NamedEvent {
  public:
    std::atomic<bool> IsSet = true;
    std::atomic<bool> WasWaitedFor = false;  // in vain

    bool WasThere() const override { return false; }
    void Set() override { IsSet = true; }
    void Reset() override { IsSet = false; }
    WaitResult Wait(std::uint32_t) override {
        if (IsSet) {
            return WaitResult::Signalled;
        }
        WasWaitedFor = true;
        std::this_thread::yield();
        return WaitResult::TimedOut;
    }
    void ProtectFromClose(bool) override {}
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>
#include <thread>

#include "platform/named_objects.h"

namespace vbr {

// An event that the test holds: waits for it time out at once until it is set. Its handles share
// one state, and any thread may use them.
class HeldEvent {
  public:
    bool IsSet() const { return state_->IsSet; }
    void Set() { state_->IsSet = true; }
    void Reset() { state_->IsSet = false; }
    // Returns when somebody has waited in vain.
    void WaitForWaiter() const {
        while (!state_->WasWaitedFor) {
            std::this_thread::yield();
        }
    }
    std::unique_ptr<NamedEvent> Handle() const { return std::make_unique<Shared>(state_); }

  private:
    struct State {
        std::atomic<bool> IsSet = true;
        std::atomic<bool> WasWaitedFor = false;
    };

    class Shared : public NamedEvent {
      public:
        explicit Shared(std::shared_ptr<State> state) : state_(std::move(state)) {}
        void Set() override { state_->IsSet = true; }
        void Reset() override { state_->IsSet = false; }
        WaitResult Wait(std::uint32_t) override {
            if (state_->IsSet) {
                return WaitResult::Signalled;
            }
            state_->WasWaitedFor = true;
            std::this_thread::yield();
            return WaitResult::TimedOut;
        }
        void ProtectFromClose(bool) override {}

      private:
        std::shared_ptr<State> state_;
    };

    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace vbr

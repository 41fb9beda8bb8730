// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <limits>
#include <set>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/journal.h"
#include "platform/input_injector.h"
#include "platform/input_join.h"

namespace vbr {

// Keeps what was sent, one list a call, and is the target that reads it: at once, or each event in
// its time. The scan code of a key is its code plus 100.
class RecordingInput : public InputInjector {
  public:
    explicit RecordingInput(const FakeClock& clock, Journal* calls = nullptr)
        : clock_(clock), calls_(calls) {}

    std::vector<std::vector<KeyEvent>> Sent;
    std::size_t MostPerCall = std::numeric_limits<std::size_t>::max();
    std::set<std::uint16_t> Held;
    std::uint32_t MsPerEvent = 0;
    std::size_t MostUnread = 0;                                  // events that waited at a time
    std::function<void(const KeyEvent&)> OnSent = [](auto&) {};  // each event

    std::size_t Send(std::span<const KeyEvent> events) override {
        const std::size_t taken = std::min(events.size(), MostPerCall);
        Sent.emplace_back(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(taken));
        for (const KeyEvent& event : Sent.back()) {
            lastRead_ = std::max(lastRead_, clock_.Tick) + MsPerEvent;
            queue_.push_back({event, lastRead_});
            if ((event.Flags & kKeyUp) != 0) {
                Held.erase(event.Vk);
            }
            OnSent(event);
        }
        if (MsPerEvent > 0) {
            MostUnread = std::max<std::size_t>(MostUnread, (lastRead_ - clock_.Tick) / MsPerEvent);
        }
        if (calls_) {
            calls_->push_back("keys");
        }
        return taken;
    }
    bool IsKeyDown(std::uint16_t vk) const override { return Held.contains(vk); }
    bool IsDownAsRead(std::uint16_t vk) const override {
        const auto last = std::find_if(queue_.rbegin(), queue_.rend(), [&](const Queued& queued) {
            return queued.Event.Vk == vk && queued.ReadAt <= clock_.Tick;
        });
        return last != queue_.rend() && (last->Event.Flags & kKeyUp) == 0;
    }
    std::uint16_t ScanCode(std::uint16_t vk) const override {
        return static_cast<std::uint16_t>(vk + 100);
    }

    // The events of all calls but the marks, by which the target's reading is seen.
    std::vector<KeyEvent> Keys() const {
        std::vector<KeyEvent> keys;
        for (const std::vector<KeyEvent>& events : Sent) {
            std::ranges::copy_if(events, std::back_inserter(keys), [](const KeyEvent& event) {
                return event.Vk != kVkUnassigned && event.Vk != kVkUnassigned2 &&
                       event.Vk != kVkUnassigned3;
            });
        }
        return keys;
    }

  private:
    struct Queued {
        KeyEvent Event;
        std::uint32_t ReadAt;  // ticks
    };

    const FakeClock& clock_;
    Journal* calls_;
    std::uint32_t lastRead_ = 0;  // ticks
    std::vector<Queued> queue_;
};

// Runs the work at once, joined or not.
class FakeInputJoin : public InputJoin {
  public:
    JoinState State = JoinState::Joined;

    void Run(WindowHandle, std::uint32_t, const std::function<void(JoinState)>& work) override {
        work(State);
    }
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

#include "fakes/journal.h"
#include "platform/input_injector.h"

namespace vbr {

// Keeps what was sent, one list a call. The scan code of a key is its code plus 100.
class RecordingInput : public InputInjector {
  public:
    explicit RecordingInput(Journal* calls = nullptr) : calls_(calls) {}

    std::vector<std::vector<KeyEvent>> Sent;
    std::size_t MostPerCall = std::numeric_limits<std::size_t>::max();
    std::set<std::uint16_t> Held;
    std::set<std::uint16_t> States;

    std::size_t Send(std::span<const KeyEvent> events) override {
        const std::size_t taken = std::min(events.size(), MostPerCall);
        Sent.emplace_back(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(taken));
        if (calls_) {
            calls_->push_back("keys");
        }
        return taken;
    }
    bool IsKeyDown(std::uint16_t vk) const override { return Held.contains(vk); }
    bool HasKeyState(std::uint16_t vk) const override { return States.contains(vk); }
    std::uint16_t ScanCode(std::uint16_t vk) const override {
        return static_cast<std::uint16_t>(vk + 100);
    }

  private:
    Journal* calls_;
};

}  // namespace vbr

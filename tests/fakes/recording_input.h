// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "fakes/journal.h"
#include "platform/input_injector.h"

namespace vbr {

// Keeps what was sent, one list a call. The scan code of a key is its code plus 100.
class RecordingInput : public InputInjector {
  public:
    explicit RecordingInput(Journal* calls = nullptr) : calls_(calls) {}

    std::vector<std::vector<KeyEvent>> Sent;

    void Send(std::span<const KeyEvent> events) override {
        Sent.emplace_back(events.begin(), events.end());
        if (calls_) {
            calls_->push_back("keys");
        }
    }
    std::uint16_t ScanCode(std::uint16_t vk) const override {
        return static_cast<std::uint16_t>(vk + 100);
    }

  private:
    Journal* calls_;
};

}  // namespace vbr

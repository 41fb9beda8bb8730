// SPDX-License-Identifier: MIT
#pragma once

#include <map>

#include "fakes/journal.h"
#include "macros/delivery_host.h"

namespace vbr {

// Notes what a delivery asks for and has the history items that a test gives it.
class FakeDeliveryHost : public DeliveryHost {
  public:
    explicit FakeDeliveryHost(Journal& calls) : calls_(calls) {}

    std::map<std::size_t, ClipText> History;

    void PlayEventSound(DeliverySound sound) override {
        calls_.push_back("sound " + std::to_string(static_cast<int>(sound)));
    }
    void BeginOwnCopy() override { calls_.push_back("own copy begins"); }
    void EndOwnCopy() override { calls_.push_back("own copy ends"); }
    void KeepClipboard() override { calls_.push_back("keep"); }
    void RestoreClipboard() override { calls_.push_back("restore"); }
    std::optional<ClipText> HistoryItem(std::size_t position) const override {
        const auto found = History.find(position);
        return found == History.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    Journal& calls_;
};

}  // namespace vbr

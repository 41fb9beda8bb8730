// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "base/text.h"
#include "exchange/wait_query.h"
#include "fakes/journal.h"
#include "platform/hotkey_registrar.h"

namespace vbr {

// The system's register of hot keys; key n is called "Keyn".
class FakeHotkeys : public HotkeyRegistrar {
  public:
    explicit FakeHotkeys(Journal& calls) : calls_(calls) {}

    std::optional<SystemError> Error;

    std::optional<SystemError> Register(std::uint16_t mods, std::uint16_t vk) override {
        calls_.push_back("register " + std::to_string(mods) + "+" + std::to_string(vk));
        return Error;
    }
    bool Unregister() override {
        calls_.push_back("unregister");
        return true;
    }
    std::u16string KeyName(std::uint16_t vk) const override { return Concat(u"Key", vk); }

  private:
    Journal& calls_;
};

// The wait for queries, which the test answers.
class FakeWaiter : public QueryWaiter {
  public:
    explicit FakeWaiter(Journal& calls) : calls_(calls) {}

    bool Starts = true;
    bool Busy = false;

    bool Start(NamedEvent&, NamedEvent&) override {
        calls_.push_back("wait");
        return Starts;
    }
    void Stop() override { calls_.push_back("wait no more"); }
    bool IsBusy() const override { return Busy; }

  private:
    Journal& calls_;
};

}  // namespace vbr

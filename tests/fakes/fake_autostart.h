// SPDX-License-Identifier: MIT
#pragma once

#include "platform/autostart.h"

namespace vbr {

// The user's Run value.
class FakeAutostart : public Autostart {
  public:
    std::optional<std::u16string> Value;
    bool SwitchedOff = false;  // in the system's list

    std::optional<std::u16string> Read() const override {
        return SwitchedOff ? std::nullopt : Value;
    }
    bool Write(std::u16string_view commandLine) override {
        Value = commandLine;
        return true;
    }
    void Delete() override { Value.reset(); }
    void Allow() override { SwitchedOff = false; }
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fault_catcher.h"

namespace vbr {

// A fault, for tests that have no hardware to fail.
struct Fault {
    std::uint32_t Code = 0;
};

// Catches thrown faults, each with its code.
class ThrowingFaultCatcher : public FaultCatcher {
  public:
    std::optional<std::uint32_t> Run(const std::function<void()>& work) override {
        try {
            work();
        } catch (const Fault& fault) {
            return fault.Code;
        }
        return std::nullopt;
    }
};

}  // namespace vbr

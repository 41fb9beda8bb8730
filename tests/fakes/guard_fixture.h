// SPDX-License-Identifier: MIT
#pragma once

#include "diagnostics/guarded_section.h"
#include "fakes/fake_alert_box.h"
#include "fakes/memory_log.h"
#include "platform/fault_catcher.h"
#include "settings/embedded_strings.h"

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

// Guarded sections whose faults are thrown, and what they report.
struct GuardFixture {
    MemoryLog Log;
    EmbeddedStrings Texts;
    FakeAlertBox Box;
    ErrorReport Report{Log, Texts, Box};
    ThrowingFaultCatcher Catcher;
    GuardedSections Sections{Catcher, Report};
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "diagnostics/guarded_section.h"
#include "fakes/fake_alert_box.h"
#include "fakes/memory_log.h"
#include "fakes/throwing_fault_catcher.h"
#include "settings/embedded_strings.h"

namespace vbr {

// Guarded sections whose faults are thrown, and what they report.
struct GuardDesk {
    MemoryLog Log;
    EmbeddedStrings Texts;
    FakeAlertBox Box;
    ErrorReport Report{Log, Texts, Box};
    ThrowingFaultCatcher Catcher;
    GuardedSections Sections{Catcher, Report};
};

}  // namespace vbr

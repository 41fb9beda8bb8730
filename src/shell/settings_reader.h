// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/clock.h"
#include "platform/log.h"
#include "settings/settings.h"
#include "shell/tray_view.h"

namespace vbr {

// Reads the settings at the program's start. For two seconds it tries again: a program that saves
// or scans files may hold them. False when they could not be read.
bool ReadSettingsAtStart(CVBRSettings& settings, Clock& clock);

// Reads and saves the settings while the program runs. What can't be read is tried again with
// growing pauses until it is. Belongs to the main thread.
class SettingsReader {
  public:
    struct Collaborators {
        CVBRSettings& Settings;
        TrayView& View;
        vbr::Log& Log;
        std::function<void()> OnReadLate;  // after a reading that failed before
    };

    explicit SettingsReader(Collaborators with) : with_(std::move(with)) {}

    // Another program may have changed them.
    void Read();
    // When the last reading failed: tries again until one succeeds.
    void TryAgainLater();
    // Reads what could not be read so far, if it can be now.
    void ReadMissing();
    bool OnTimer(std::uintptr_t id);

    // A failure is logged.
    void Save();

  private:
    void Wait(std::uint32_t milliseconds);

    Collaborators with_;
    std::uint32_t pauseMs_ = 0;  // 0 while no timer runs
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/settings_reader.h"

#include <algorithm>

#include "base/text.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr std::uint32_t kStartMs = 2000;
constexpr std::uint32_t kStartStepMs = 50;

}  // namespace

bool ReadSettingsAtStart(CVBRSettings& settings, Clock& clock) {
    const std::uint32_t began = clock.TickCount();
    while (!settings.Load()) {
        if (clock.TickCount() - began >= kStartMs) {
            return false;
        }
        clock.Sleep(kStartStepMs);
    }
    return true;
}

void SettingsReader::Read() {
    if (with_.Settings.WasRead()) {
        with_.Settings.Load();
    } else {
        ReadMissing();
    }
    TryAgainLater();
}

void SettingsReader::TryAgainLater() {
    if (with_.Settings.WasRead() || pauseMs_ != 0) {
        return;
    }
    with_.Log.LogError(Concat(u"Settings can't be read now, they are tried again: ",
                              with_.Settings.Files().Chosen.u16string()));
    Wait(kReadSettingsMs);
}

void SettingsReader::ReadMissing() {
    if (!with_.Settings.WasRead() && with_.Settings.Load()) {
        with_.OnReadLate();
    }
}

bool SettingsReader::OnTimer(std::uintptr_t id) {
    if (id != kTimerReadSettings) {
        return false;
    }
    ReadMissing();
    if (with_.Settings.WasRead()) {
        pauseMs_ = 0;
    } else {
        Wait(std::min(2 * pauseMs_, kReadSettingsMostMs));
    }
    return true;
}

void SettingsReader::Wait(std::uint32_t milliseconds) {
    pauseMs_ = with_.View.StartTimer(kTimerReadSettings, milliseconds) ? milliseconds : 0;
}

void SettingsReader::Save() {
    if (with_.Settings.Save()) {
        return;
    }
    with_.Log.LogError(Concat(with_.Settings.WasRead()
                                  ? u"Settings not saved, their file can't be written: "
                                  : u"Settings not saved, their files could not be read yet: ",
                              with_.Settings.Files().Chosen.u16string()));
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/tray_display.h"

#include <algorithm>

#include "base/text.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr std::uint32_t kStartErrorBalloonMs = 10'000;
constexpr int kInstallTries = 200;
constexpr int kBlinkChanges = 8;

}  // namespace

bool TrayDisplay::OnInstallTrayIcon() {
    if (!UpdateTrayIcon(TrayIconMode::Add)) {
        with_.Log.Write(u"ERROR: cannot install tray icon");
        return false;
    }
    with_.Sounds.PlayEventSound(with_.State().Elevated ? EventSound::StartedElevated
                                                       : EventSound::Started);
    isInstalled_ = true;
    TellStartText();
    return true;
}

void TrayDisplay::TellAtStart(std::u16string_view text) {
    const std::u16string_view trimmed = TrimLeft(text, u"\n");
    if (std::ranges::find(startTexts_, trimmed) == startTexts_.end()) {
        startTexts_.emplace_back(trimmed);
        TellStartText();
    }
}

void TrayDisplay::TellStartText() {
    if (isInstalled_ && !tellsStartText_ && startTextsTold_ < startTexts_.size()) {
        tellsStartText_ = true;
        ShowTrayBalloon(startTexts_[startTextsTold_++], kStartErrorBalloonMs);
    }
}

void TrayDisplay::InstallWithRetry() {
    triesLeft_ = kInstallTries;
    OnRetry();
}

void TrayDisplay::OnTaskbarCreated() {
    with_.View.DeleteIcon();
    InstallWithRetry();
}

void TrayDisplay::OnRetry() {
    if (triesLeft_ > 0 && (OnInstallTrayIcon() || --triesLeft_ == 0 ||
                           !with_.View.StartTimer(kTimerInstallIcon, kInstallIconMs))) {
        triesLeft_ = 0;
    }
}

bool TrayDisplay::UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning) {
    TrayState state = with_.State();
    state.HistoryNotSaved = historyNotSaved_;
    return with_.View.ChangeIcon(mode,
                                 MakeTrayIconContent(state, balloonText, warning, with_.Texts));
}

void TrayDisplay::ShowTrayBalloon(std::u16string_view text, std::uint32_t milliseconds) {
    const bool shown = with_.View.ShowBalloon(text, milliseconds);
    if (shown && !text.empty()) {
        with_.View.StartTimer(kTimerHideBalloon, milliseconds);
    }
}

void TrayDisplay::HideTrayBalloon() {
    ShowTrayBalloon({}, 0);
}

void TrayDisplay::BlinkTrayIcon() {
    if (blinksLeft_ > 0) {
        // Which image comes next stays.
        blinksLeft_ = kBlinkChanges - blinksLeft_ % 2;
        return;
    }
    with_.Sounds.PlayNotification();
    blinksLeft_ = kBlinkChanges;
    OnBlink();
}

void TrayDisplay::OnBlink() {
    if (blinksLeft_ > 0) {
        with_.View.ShowBlinkImage(blinksLeft_-- % 2 == 0);
        if (blinksLeft_ > 0) {
            with_.View.StartTimer(kTimerBlink, kBlinkMs);
        }
    }
}

bool TrayDisplay::OnTimer(std::uintptr_t id) {
    switch (id) {
        case kTimerHideBalloon:
            HideTrayBalloon();
            tellsStartText_ = false;
            TellStartText();
            return true;
        case kTimerInstallIcon:
            OnRetry();
            return true;
        case kTimerBlink:
            OnBlink();
            return true;
        default:
            return false;
    }
}

}  // namespace vbr

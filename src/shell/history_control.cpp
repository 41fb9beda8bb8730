// SPDX-License-Identifier: MIT
#include "shell/history_control.h"

#include "base/text.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr int kMostTries = 200;
constexpr std::uint32_t kFailingBalloonMs = 10'000;

}  // namespace

void HistoryControl::StartWithRetry() {
    if (!with_.Settings.ClipboardHistory || isPaused_ || !MayStart() || StartByItself()) {
        return;
    }
    with_.Log.Write(u"Start Delayed ClipboardHistory");
    tries_ = 0;
    with_.View.StartTimer(kTimerInstallSpy, kInstallSpyMs);
}

bool HistoryControl::OnInstallSpy() {
    return with_.Settings.ClipboardHistory && !isPaused_ && MayStart() && StartByItself();
}

bool HistoryControl::Resume() {
    if (!isPaused_ && MayStart() && !StartByItself()) {
        StartWithRetry();
    }
    return IsKeeping();
}

// What was copied while the history was off is none of its business.
bool HistoryControl::StartByItself() {
    const bool started = with_.Capture.Start(!wasStarted_);
    wasStarted_ = wasStarted_ || started;
    return started;
}

bool HistoryControl::OnTimer(std::uintptr_t id) {
    if (id == kTimerSaveAgain) {
        Save();
        return true;
    }
    if (id != kTimerInstallSpy) {
        return false;
    }
    if (isPaused_) {
        return true;
    }
    const bool started = OnInstallSpy();
    ++tries_;
    with_.Log.Write(
        Concat(u"Try to delyaed install clipboard spy: success ", int{started}, u", try#", tries_));
    if (!started && tries_ < kMostTries) {
        with_.View.StartTimer(kTimerInstallSpy, kInstallSpyMs);
    }
    return true;
}

void HistoryControl::ToggleKeeping(bool anew) {
    const bool ran = IsKeeping();
    if ((!ran || anew) && !MayStart()) {
        return;
    }
    isPaused_ = ran && !anew;
    if (ran) {
        with_.Capture.Stop();
    }
    if (!isPaused_) {
        wasStarted_ = true;
        with_.Capture.Start(ran);
    }
    with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
    AnnounceKeep();
}

// A default limit would delete what the user's own one keeps on the disk.
bool HistoryControl::MayStart() const {
    if (!with_.Settings.WasRead()) {
        with_.Log.Write(u"The clipboard history waits until the settings can be read");
    }
    return with_.Settings.WasRead();
}

void HistoryControl::Clear() {
    with_.Queue.Clear();
    with_.Capture.NotifyChanged();
    Save();
}

void HistoryControl::OnSaveEnded() {
    const SaveState state = with_.Capture.Saving();
    if (state.IsWanted) {
        Save();
    } else if (state.RetryAfter) {
        with_.View.StartTimer(kTimerSaveAgain, *state.RetryAfter);
    }
    if (state.IsFailing == isFailing_) {
        return;
    }
    isFailing_ = state.IsFailing;
    with_.Log.Write(
        Concat(u"Saving of the clipboard history fails again and again: ", int{isFailing_}));
    with_.Display.SetHistoryNotSaved(isFailing_);
    with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
    if (isFailing_) {
        with_.Display.ShowTrayBalloon(with_.Texts.LoadString(kStrHistoryNotSaved),
                                      kFailingBalloonMs);
    }
}

void HistoryControl::OnNotice(std::uint32_t code, std::uint32_t parameter, std::uint32_t sequence) {
    const HistoryReaction reaction = notices_.OnNotice(code, parameter, sequence, GetCount());
    if (reaction.Refresh) {
        with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
    }
    if (reaction.PlaySound) {
        with_.Sounds.PlayEventSound(EventSound::ClipKept);
    }
}

}  // namespace vbr

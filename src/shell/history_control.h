// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "base/announcer.h"
#include "history/history_notices.h"
#include "history/history_queue.h"
#include "history/history_saver.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "settings/settings.h"
#include "shell/tray_display.h"

namespace vbr {

// The window that turns clipboard changes into history items, for as long as it is there.
class HistoryCapture {
  public:
    virtual ~HistoryCapture() = default;

    virtual bool IsKeeping() const = 0;
    // Both succeed at once when that is so already. What the clipboard holds when it starts is
    // captured only if that is wanted.
    virtual bool Start(bool withContent) = 0;
    virtual bool Stop() = 0;
    // Writes what is not on disk, when the settings say so.
    virtual void Save() = 0;
    virtual SaveState Saving() const = 0;
    // Tells the tray window of a change by a command.
    virtual void NotifyChanged() = 0;
};

// The clipboard history as the program's windows and commands turn it on, off and about. Belongs to
// the main thread.
class HistoryControl {
  public:
    struct Collaborators {
        const CVBRSettings& Settings;
        HistoryCapture& Capture;
        CCHQueue& Queue;
        TrayView& View;
        TrayDisplay& Display;
        const Strings& Texts;
        EventSounds& Sounds;
        vbr::Log& Log;
    };

    explicit HistoryControl(const Collaborators& with) : with_(with), notices_(with.Log) {}

    bool IsKeeping() const { return with_.Capture.IsKeeping(); }
    std::size_t GetCount() const { return with_.Queue.GetCount(); }
    // Whoever follows the keeping is told its state after each change.
    Announcer<bool>& KeepObservers() { return keepObservers_; }
    void AnnounceKeep() { keepObservers_.Announce(IsKeeping()); }

    // When the settings ask for the history and the user hasn't turned it off since: starts it, or
    // goes on trying every two seconds, 200 times at most. It never starts while the settings can't
    // be read. The first start captures what is on the clipboard.
    void StartWithRetry();
    // One such try; true when the history is kept afterwards.
    bool OnInstallSpy();
    // After the session stopped it: starts it again, unless the user has turned it off; true when
    // it is kept afterwards.
    bool Resume();
    bool OnTimer(std::uintptr_t id);

    // Stops what runs; starts what doesn't, or `anew` in any case.
    void ToggleKeeping(bool anew);
    void Clear();
    void Save() { with_.Capture.Save(); }
    // A save has ended: begins the next one that is wanted, tries again later what failed, and
    // tells the user when it goes on failing.
    void OnSaveEnded();
    void OnLanguageChanged() { with_.Queue.ClearTips(); }

    // A notice of the capturing window, with the clipboard's number now.
    void OnNotice(std::uint32_t code, std::uint32_t parameter, std::uint32_t sequence);

  private:
    bool MayStart() const;
    bool StartByItself();

    Collaborators with_;
    HistoryNotices notices_;
    Announcer<bool> keepObservers_;
    int tries_ = 0;
    bool isFailing_ = false;
    bool wasStarted_ = false;
    bool isPaused_ = false;  // by the user
};

}  // namespace vbr

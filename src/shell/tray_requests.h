// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "base/announcer.h"
#include "platform/clock.h"
#include "platform/event_sounds.h"
#include "platform/input_injector.h"
#include "platform/log.h"
#include "platform/profile_store.h"
#include "platform/strings.h"
#include "settings/settings.h"
#include "shell/held_hotkey.h"
#include "shell/history_control.h"
#include "shell/query_flow.h"
#include "shell/service_control.h"
#include "shell/settings_reader.h"
#include "shell/tray_commands.h"
#include "shell/tray_display.h"

namespace vbr {

// What a follower of the user interface is told.
enum class UiChange {
    LanguageApplied = 0,  // value 0
    Session = 1,          // value is the session's reason
};

// What threads, timers and other programs ask of the tray window. Belongs to the main thread.
class TrayRequests {
  public:
    struct Collaborators {
        CVBRSettings& Settings;
        SettingsReader& Reader;
        const ProfileStore& Profile;
        const Strings& Texts;
        vbr::Clock& Clock;
        ServiceControl& Service;
        HistoryControl& History;
        QueryFlow& Flow;
        TrayCommands& Commands;
        vbr::Companions& Companions;
        AutostartControl& Autostart;
        TrayView& View;
        TrayDisplay& Display;
        EventSounds& Sounds;
        const InputInjector& Input;
        vbr::Log& Log;
    };

    explicit TrayRequests(const Collaborators& with) : with_(with) {}

    Announcer<UiChange, std::uint32_t>& UiObservers() { return uiObservers_; }

    // The service at the program's start; what went wrong is told with the icon.
    void InstallAtStart();
    // A number of kSignal...; any other does nothing.
    void OnInstanceSignal(std::uintptr_t code);
    // The system tells of the hot key, by the key's event at that tick.
    void OnHotKey(std::uint32_t tick);
    // The shell tells of the icon: a mouse message, or a number of its own.
    void OnTrayNotify(std::uint32_t notice);
    // At the first start of this version, unless it lies on something that is carried about: it
    // starts with Windows from now on if it doesn't end at once. Then the welcome program, if that
    // was never there.
    void BeginFirstRun(const FileLocations& locations);
    // An editor of any start has ended and may have changed settings and phrases.
    void OnEditorEnded();
    // Of an editor that this instance has started.
    void OnEditorState(EditorState state);
    // The settings were read later than they were needed.
    void OnSettingsReadLate();
    void OnLanguageChanged();
    // Texts and links come in the language of the settings from now on.
    void ApplyLanguage();
    void OnWaitError();
    // A named object of the program is another one's.
    void OnNameTaken();
    // For a process with an administrator's rights: log and balloon say when what it carries out
    // comes from places that programs without them can write.
    void TellOfOpenPlaces(const FileLocations& locations, const FileAccess& files);
    void OnTimer(std::uintptr_t id);
    std::u16string PaneTitle() const;

  private:
    // Phrases, texts, history and icon become as the settings say.
    void ApplySettings();
    // The same with the service, after the settings were read again.
    void TakeChanges();
    void OnBalloonClick();
    // What the user is told of a service that could not be turned on.
    std::u16string FailureText(std::u16string_view error) const;
    // Looks whether the hot key was let go, and goes on looking until it is.
    void WatchHotkey();

    Collaborators with_;
    HeldHotkey heldHotkey_;
    std::u16string languageBefore_;  // the editor's start
    Announcer<UiChange, std::uint32_t> uiObservers_;
};

}  // namespace vbr

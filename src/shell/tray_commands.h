// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "platform/clipboard_access.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/shell_opener.h"
#include "platform/window_handle.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "shell/autostart_control.h"
#include "shell/companions.h"
#include "shell/history_control.h"
#include "shell/query_flow.h"
#include "shell/service_control.h"
#include "shell/settings_reader.h"
#include "shell/tray_display.h"
#include "shell/tray_history.h"
#include "shell/tray_view.h"
#include "web/vbr_url.h"

namespace vbr {

// The commands of the tray menu, which other windows borrow. Belongs to the main thread.
class TrayCommands {
  public:
    struct Collaborators {
        CVBRSettings& Settings;
        const FileLocations& Locations;
        SettingsReader& Reader;
        ServiceControl& Service;
        HistoryControl& History;
        QueryFlow& Flow;
        TrayView& View;
        TrayDisplay& Display;
        EventSounds& Sounds;
        ClipboardAccess& Clipboard;
        TrayHistory& Clips;
        vbr::Companions& Companions;
        AutostartControl& Autostart;
        ShellOpener& Opener;
        const Strings& Texts;
        WindowHandle Window = 0;  // owns what the shell opens
        vbr::Log& Log;
    };

    explicit TrayCommands(const Collaborators& with) : with_(with) {}

    // Whether the command can be carried out now. False for one that the program doesn't have.
    bool IsAvailable(int id) const;
    bool IsChecked(int id) const;
    // What the command opens in the browser; empty for any other.
    static std::u16string AddressOf(int id);
    // Carries the command out, or puts the clip of a number of the history on the clipboard. What
    // isn't available leaves a line in the log.
    void Run(int id);

    // Reads the phrases anew as soon as no menu or prompt is open, and shows it: by a balloon, or
    // else by a blink of the icon.
    void RereadPhrases(bool balloon);

  private:
    struct Command {
        int Id = 0;
        void (TrayCommands::*Run)() = nullptr;              // the program lacks it when it is null
        bool (TrayCommands::*Available)() const = nullptr;  // always when it is null
        bool (TrayCommands::*Checked)() const = nullptr;    // never when it is null
        std::u16string (*Address)() = nullptr;              // what a link opens
    };
    static std::span<const Command> All();
    static const Command* Find(int id);

    bool IsServiceOn() const { return with_.Service.IsServiceInstalled(); }
    bool AreSoundsOn() const { return with_.Settings.SoundOnEvents; }
    bool IsLogOn() const { return with_.Log.IsLogOn(); }
    bool IsPaneOnStart() const { return with_.Settings.ShowHistoryPaneOnStart; }
    bool IsKeeping() const { return with_.History.IsKeeping(); }
    bool HasHistory() const { return with_.History.GetCount() > 0; }
    bool IsHistorySaved() const { return with_.Settings.SaveClipboardHistory; }
    bool ChecksForUpdates() const { return with_.Settings.AutoCheckForUpdates; }
    bool IsAutostart() const { return with_.Autostart.IsAutostart(); }
    bool HasClipboardText() const;
    bool MayRunAsAdministrator() const { return with_.Companions.MayRunAsAdministrator(); }

    // What the user sees is inverted and saved, whatever a file says that is read only now.
    void Toggle(bool CVBRSettings::*setting);
    void ToggleService();
    void Reread() { RereadPhrases(true); }
    void ToggleSounds();
    void ToggleLog();
    void TogglePaneOnStart();
    void ToggleKeeping();
    void KeepAnew() { with_.History.ToggleKeeping(true); }
    void ClearHistory() { with_.History.Clear(); }
    void ToggleSavingHistory();
    void ShowTrayMenu() { with_.View.ShowTrayMenu(TrayMenuPlace::Mouse); }
    void EditPhrases() { with_.Companions.StartEditor({}); }
    void SaveClipboardAsPhrase() { with_.Companions.StartEditor({.AddFromClipboard = true}); }
    void InvertAutostart() { with_.Autostart.Invert(); }
    void OpenSettingsFile();
    void StartWelcome() { with_.Companions.StartWelcome(false); }
    void RunAsAdministrator() { with_.Companions.RunAsAdministrator(); }
    void PutClip(int id);
    void ShowPhraseMenu();
    void SendMailToMakers() { SendMail(with_.Opener, with_.Window); }
    void Exit() { with_.View.Close(); }

    Collaborators with_;
};

}  // namespace vbr

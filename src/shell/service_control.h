// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "menu/phrase_menu_handler.h"
#include "phrases/command_saver.h"
#include "phrases/command_tree.h"
#include "platform/file_access.h"
#include "platform/log.h"
#include "platform/log_file.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "shell/hotkey_service.h"
#include "shell/tray_texts.h"

namespace vbr {

// Turns the program's main job on and off: the log as the settings say, the phrases, the hot key
// with all that serves it. Belongs to the main thread.
class ServiceControl {
  public:
    struct Collaborators {
        const CVBRSettings& Settings;
        const FileLocations& Locations;
        const FileAccess& Files;
        vbr::Log& Log;
        LogFile& LogOfUser;
        CommandSaver& Saver;
        CVBRCommandTree& Tree;
        IDataNeededHander_MenuSelf& Menu;
        HotkeyService& Hotkey;
        WindowHandle Window = 0;         // gets the hot key
        std::uint32_t QueryMessage = 0;  // that starts a query in a target
        QueryRouteChoice Route = QueryRouteChoice::OfSystem;
        bool TargetsAnswer = false;  // on that route
    };

    explicit ServiceControl(const Collaborators& with) : with_(with) {}

    // On a failure the hot key stays off, and the text tells the user why.
    std::optional<std::u16string> InstallService();
    void StopService();
    // After the settings were read again: the log, and the service if it is to be on, as they say.
    // The phrases stay as they are. The text as above.
    std::optional<std::u16string> Renew();
    bool IsServiceInstalled() const { return with_.Hotkey.IsInstalled(); }
    // Another program has the hot key: the service could not be turned on for that reason.
    bool IsHotkeyTaken() const { return with_.Hotkey.IsHotkeyTaken(); }

    void RestartQueryWait() { with_.Hotkey.RestartWait(); }
    bool IsAllow_WaitAnswerFromExeAgent() const {
        return with_.Menu.IsAllow_WaitAnswerFromExeAgent();
    }
    // After the settings were read again.
    void ClearMenuFonts() { with_.Menu.ClearFonts(); }

    // Turns the log on or off; false when it can't be turned on.
    bool SetLog(bool on);

    // Reads the phrases anew, after what is still to be saved. Records and ids handed out before
    // are invalid then.
    void LoadPhrases();
    CommandCounts CountPhrases() const { return with_.Tree.CountCommands(); }
    std::u16string HotkeyName() const { return with_.Hotkey.HotkeyName(); }

    // What the icon tells; `elevated` is the process's.
    TrayState State(bool elevated) const;

    // The folder that the settings name, whether or not it exists.
    std::u16string PhrasesFolder() const;

  private:
    std::optional<std::u16string> InstallHotkey();

    Collaborators with_;
    bool isWanted_ = false;  // even if it could not be installed
};

}  // namespace vbr

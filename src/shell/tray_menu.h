// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "phrases/command_tree.h"
#include "platform/menu_data.h"
#include "platform/strings.h"
#include "settings/settings.h"
#include "shell/tray_commands.h"
#include "shell/tray_history.h"

namespace vbr {

// Whether these are the entries of the sub-menu that shows the clips.
bool IsHistoryMenu(const std::vector<MenuEntry>& entries);

// The tray menu as plain data: the template in the user's language with counts, check marks and the
// clips. Commands that can't be carried out now are grayed. Belongs to the main thread.
class TrayMenu {
  public:
    struct Collaborators {
        const TrayCommands& Commands;
        const ServiceControl& Service;
        TrayHistory& Clips;
        const CVBRSettings& Settings;
        const HistoryControl& History;
        const Strings& Texts;
    };

    explicit TrayMenu(const Collaborators& with) : with_(with) {}

    // As it is at this moment, the clips in their sub-menu only when they are wanted. The sub-menus
    // always stand at the same places.
    std::vector<MenuEntry> Entries(bool withClips);

  private:
    void Update(std::vector<MenuEntry>& entries, bool withClips);
    void UpdateHistory(MenuEntry& history);
    void AddClips(MenuEntry& history);

    Collaborators with_;
};

}  // namespace vbr

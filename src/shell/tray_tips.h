// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "history/item_text.h"
#include "platform/ansi_text.h"
#include "platform/clipboard_access.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/strings.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "shell/hotkey_service.h"
#include "shell/service_control.h"
#include "shell/tray_commands.h"
#include "shell/tray_history.h"

namespace vbr {

// A tip with its title; an empty title leaves the command's.
struct CommandTip {
    std::u16string Text;
    std::u16string Title;

    bool operator==(const CommandTip&) const = default;
};

// What the tips of the tray's commands tell beyond their string. Each is made when it shows.
// Belongs to the main thread.
class TrayTips {
  public:
    struct Collaborators {
        CVBRSettings& Settings;
        const FileLocations& Locations;
        const ServiceControl& Service;
        const TrayCommands& Commands;
        const TrayHistory& Clips;
        const MessageList& Messages;
        ClipboardAccess& Clipboard;
        const AnsiText& Ansi;
        ItemTexts& Items;
        const vbr::Clock& Clock;
        const vbr::Locale& Locale;
        const Strings& Texts;
        std::u16string HistoryFolder;
        std::function<std::u16string_view()> TrackingMethod;  // in words
    };

    explicit TrayTips(Collaborators with) : with_(std::move(with)) {}

    // Nothing for a command whose string says it all.
    std::optional<CommandTip> TipOf(std::uint32_t id);

  private:
    std::u16string TextOf(int id);
    std::u16string Text(int id) const { return with_.Texts.LoadString(id); }
    std::u16string Base(int id) const;
    std::u16string OnOrOff(bool on) const;
    std::u16string Version() const;
    std::u16string Updates();
    std::u16string ClipboardContent() const;
    std::u16string Tracking() const;
    std::u16string LocalDate(const SystemTime& utc, std::uint32_t daysLater) const;

    Collaborators with_;
};

}  // namespace vbr

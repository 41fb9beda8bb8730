// SPDX-License-Identifier: MIT
#include "shell/tray_commands.h"

#include <algorithm>

#include "base/text.h"
#include "platform/clipboard_blocks.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"
#include "web/vbr_url.h"

namespace vbr {

std::span<const TrayCommands::Command> TrayCommands::All() {
    using Self = TrayCommands;
    static constexpr Command kCommands[] = {
        {.Id = kCmdEnableService, .Run = &Self::ToggleService, .Checked = &Self::IsServiceOn},
        {.Id = kCmdEditPhrases, .Run = &Self::EditPhrases},
        {.Id = kCmdStartWithWindows, .Run = &Self::InvertAutostart, .Checked = &Self::IsAutostart},
        {.Id = kCmdRereadPhrases, .Run = &Self::Reread},
        {.Id = kCmdSavePhraseFromClipboard,
         .Run = &Self::SaveClipboardAsPhrase,
         .Available = &Self::HasClipboardText},
        {.Id = kCmdSounds, .Run = &Self::ToggleSounds, .Checked = &Self::AreSoundsOn},
        {.Id = kCmdWriteLog, .Run = &Self::ToggleLog, .Checked = &Self::IsLogOn},
        {.Id = kCmdHistoryPaneOnStart,
         .Run = &Self::TogglePaneOnStart,
         .Checked = &Self::IsPaneOnStart},
        {.Id = kCmdKeepHistory, .Run = &Self::ToggleKeeping, .Checked = &Self::IsKeeping},
        {.Id = kCmdRekeepHistory, .Run = &Self::KeepAnew, .Available = &Self::IsKeeping},
        {.Id = kCmdClearHistory, .Run = &Self::ClearHistory, .Available = &Self::HasHistory},
        {.Id = kCmdSaveHistoryOnExit,
         .Run = &Self::ToggleSavingHistory,
         .Checked = &Self::IsHistorySaved},
        {.Id = kCmdCheckForUpdates, .Checked = &Self::ChecksForUpdates},
        {.Id = kCmdRunAsAdministrator,
         .Run = &Self::RunAsAdministrator,
         .Available = &Self::MayRunAsAdministrator},
        {.Id = kCmdOpenSettingsFile, .Run = &Self::OpenSettingsFile},
        {.Id = kCmdWelcome, .Run = &Self::StartWelcome},
        {.Id = kCmdShowTrayMenu, .Run = &Self::ShowTrayMenu},
        {.Id = kCmdShowPhraseMenu, .Run = &Self::ShowPhraseMenu},
        {.Id = kCmdEmailToUs, .Run = &Self::SendMailToMakers},
        {.Id = kCmdExit, .Run = &Self::Exit},
        {.Id = kCmdHowToLocalize, .Address = CVBRUrl::GetLocalizeUrl},
        {.Id = kCmdVisitWebSite, .Address = CVBRUrl::GetHomeUrl},
        {.Id = kCmdVisitForum, .Address = CVBRUrl::GetForumUrl},
        {.Id = kCmdSupport, .Address = CVBRUrl::GetSupportUrl},
        {.Id = kCmdRssFeed, .Address = CVBRUrl::GetNewsUrl},
        {.Id = kCmdVideo, .Address = CVBRUrl::GetVideoUrl},
        {.Id = kCmdVisitQuickStart, .Address = CVBRUrl::GetQuickStartUrl},
        {.Id = kCmdVisitFaq, .Address = CVBRUrl::GetFaqUrl},
        {.Id = kCmdFacebookGroup, .Address = CVBRUrl::GetFacebookUrl},
        {.Id = kCmdVkontakteGroup, .Address = CVBRUrl::GetVkUrl},
    };
    return kCommands;
}

const TrayCommands::Command* TrayCommands::Find(int id) {
    const auto all = All();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [id](const Command& command) { return command.Id == id; });
    return found == all.end() ? nullptr : &*found;
}

bool TrayCommands::IsAvailable(int id) const {
    const Command* command = Find(id);
    return command && (command->Run || command->Address) &&
           (!command->Available || (this->*command->Available)());
}

bool TrayCommands::IsChecked(int id) const {
    const Command* command = Find(id);
    return command && command->Checked && (this->*command->Checked)();
}

std::u16string TrayCommands::AddressOf(int id) {
    const Command* command = Find(id);
    return command && command->Address ? command->Address() : std::u16string();
}

void TrayCommands::Run(int id) {
    if (id >= kCmdFirstTrayHistory && id <= kCmdLastTrayHistory) {
        PutClip(id);
        return;
    }
    const Command* command = IsAvailable(id) ? Find(id) : nullptr;
    if (!command) {
        with_.Log.Write(Concat(u"Command ", id, u" is not available"));
    } else if (command->Address) {
        OpenUrl(with_.Opener, with_.Window, command->Address());
    } else {
        (this->*command->Run)();
    }
}

void TrayCommands::ToggleService() {
    if (with_.Service.IsServiceInstalled()) {
        with_.Service.StopService();
        with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon);
        return;
    }
    // It reads the phrases.
    with_.Flow.WhenIdle([this] {
        const auto error = with_.Service.InstallService();
        with_.History.StartWithRetry();
        if (error) {
            with_.View.ShowMessage(u"ERROR\n\n" + *error, MessageIcon::Error);
        }
        with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon);
    });
}

void TrayCommands::RereadPhrases(bool balloon) {
    with_.Flow.WhenIdle([this, balloon] {
        with_.Service.LoadPhrases();
        with_.Display.UpdateTrayIcon(balloon ? TrayIconMode::ModifyWithBalloon
                                             : TrayIconMode::Modify);
        if (!balloon) {
            with_.Display.BlinkTrayIcon();
        }
    });
}

void TrayCommands::Toggle(bool CVBRSettings::*setting) {
    const bool wanted = !(with_.Settings.*setting);
    with_.Reader.ReadMissing();
    with_.Settings.*setting = wanted;
    with_.Reader.Save();
}

void TrayCommands::ToggleSounds() {
    Toggle(&CVBRSettings::SoundOnEvents);
    with_.Sounds.PlayNotification();
}

void TrayCommands::ToggleLog() {
    const bool wanted = !with_.Log.IsLogOn();
    with_.Reader.ReadMissing();
    if (!with_.Service.SetLog(wanted)) {
        with_.View.ShowMessage(
            Concat(with_.Texts.LoadString(kStrLogNotStarted), u"\n", with_.Locations.LogFile),
            MessageIcon::Warning);
        return;
    }
    with_.Settings.WriteLog = wanted;
    with_.Reader.Save();
}

void TrayCommands::TogglePaneOnStart() {
    Toggle(&CVBRSettings::ShowHistoryPaneOnStart);
}

void TrayCommands::ToggleKeeping() {
    const bool wanted = !IsKeeping();
    // May start it.
    with_.Reader.ReadMissing();
    if (IsKeeping() != wanted) {
        with_.History.ToggleKeeping(false);
    }
}

void TrayCommands::ToggleSavingHistory() {
    Toggle(&CVBRSettings::SaveClipboardHistory);
    with_.History.Save();
}

bool TrayCommands::HasClipboardText() const {
    return with_.Clipboard.IsFormatAvailable(kClipText) ||
           with_.Clipboard.IsFormatAvailable(kClipUnicodeText);
}

void TrayCommands::OpenSettingsFile() {
    if (const auto error =
            with_.Opener.Open(with_.Window, with_.Locations.SettingsFile, ShowState::Normal)) {
        with_.View.ShowMessage(Concat(with_.Locations.SettingsFile, u"\n", error->Text),
                               MessageIcon::Error);
    }
}

void TrayCommands::PutClip(int id) {
    if (with_.Clips.PutOnClipboard(id)) {
        with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
    } else {
        with_.Log.Write(Concat(u"There is no clip for command ", id));
    }
}

void TrayCommands::ShowPhraseMenu() {
    with_.View.StartTimer(kTimerPhraseMenu, kPhraseMenuMs);
}

}  // namespace vbr

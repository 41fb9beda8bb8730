// SPDX-License-Identifier: MIT
#include "shell/tray_requests.h"

#include "base/text.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"
#include "web/link_language.h"

namespace vbr {
namespace {

constexpr std::uint32_t kExitBalloonMs = 500;

}  // namespace

void TrayRequests::InstallAtStart() {
    if (const auto error = with_.Service.InstallService()) {
        with_.Display.TellAtStart(*error);
    }
    with_.History.StartWithRetry();
}

void TrayRequests::OnInstanceSignal(std::uintptr_t code) {
    if (code == kSignalAlreadyWorks) {
        with_.Flow.WhenIdle([this] {
            if (!with_.Service.IsServiceInstalled()) {
                with_.Service.InstallService();
                with_.History.StartWithRetry();
            }
            with_.Sounds.PlayEventSound(EventSound::AlreadyWorks);
            with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon,
                                         with_.Texts.LoadString(kStrAlreadyWorks), true);
        });
    } else if (code == kSignalExit) {
        with_.Flow.Stop();
        with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon,
                                     with_.Texts.LoadString(kStrExiting));
        with_.Clock.Sleep(kExitBalloonMs);
        with_.View.PostCommand(kCmdExit);
    }
}

void TrayRequests::OnHotKey(std::uint32_t tick) {
    if (heldHotkey_.IsPress(tick)) {
        WatchHotkey();
        with_.Flow.OnHotKey();
        // No timer came while the choice was carried out.
        WatchHotkey();
    }
}

void TrayRequests::WatchHotkey() {
    if (!with_.Input.IsKeyDown(with_.Settings.HotkeyVk) ||
        !with_.View.StartTimer(kTimerHeldHotkey, kHeldHotkeyMs)) {
        heldHotkey_.NoteLetGo();
    }
}

void TrayRequests::OnEditorEnded() {
    with_.Log.Write(u"Detected event: PhraseEditor closed");
    with_.Flow.WhenIdle([this] {
        with_.Reader.Read();
        ApplySettings();
    });
}

void TrayRequests::OnSettingsReadLate() {
    with_.Flow.WhenIdle([this] {
        with_.Service.Renew();
        with_.Log.Write(u"Settings were read late, they take effect now");
        with_.History.StartWithRetry();
        ApplySettings();
    });
}

void TrayRequests::ApplySettings() {
    with_.Service.ClearMenuFonts();
    ApplyLanguage();
    with_.Commands.RereadPhrases(false);
    if (with_.Settings.ClipboardHistory && !with_.History.IsKeeping()) {
        with_.History.OnInstallSpy();
        with_.History.AnnounceKeep();
    }
    with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
}

void TrayRequests::OnLanguageChanged() {
    ApplyLanguage();
    with_.History.OnLanguageChanged();
    with_.Display.UpdateTrayIcon(TrayIconMode::Modify);
    uiObservers_.Announce(UiChange::LanguageApplied, 0);
}

void TrayRequests::ApplyLanguage() {
    SetUseRuUrls(with_.Profile, with_.Settings.GetLanguageFileName(), with_.Log);
}

void TrayRequests::OnNameTaken() {
    with_.Display.TellAtStart(with_.Texts.LoadString(kStrNamesTaken));
}

void TrayRequests::TellOfOpenPlaces(const FileLocations& locations, const FileAccess& files) {
    bool any = false;
    for (const std::u16string& place :
         {locations.ProgramFolder, locations.SettingsFile, with_.Service.PhrasesFolder()}) {
        if (files.CanOthersWrite(place)) {
            with_.Log.Write(Concat(u"Runs as administrator, and any program can write ", place));
            any = true;
        }
    }
    if (any) {
        with_.Display.TellAtStart(with_.Texts.LoadString(kStrPlacesOpenToOthers));
    }
}

void TrayRequests::OnWaitError() {
    with_.Log.LogError(
        u"Reveived message WM_WAIT_QUERY_COMPLETE_ERROR, wait of query complete with error");
    with_.Service.RestartQueryWait();
}

void TrayRequests::OnTimer(std::uintptr_t id) {
    if (id == kTimerPhraseMenu) {
        with_.Flow.OnMenuWanted();
    } else if (id == kTimerTargetAnswer) {
        with_.Flow.OnAnswerOverdue();
    } else if (id == kTimerHeldHotkey) {
        WatchHotkey();
    } else if (!with_.Display.OnTimer(id) && !with_.Reader.OnTimer(id)) {
        with_.History.OnTimer(id);
    }
}

std::u16string TrayRequests::PaneTitle() const {
    return Concat(with_.Texts.LoadString(kStrProductName), u" - ",
                  with_.Texts.LoadString(kStrPaneTitle), u" [", with_.History.GetCount(), u"]");
}

}  // namespace vbr

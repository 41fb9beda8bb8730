// SPDX-License-Identifier: MIT
#include "shell/tray_requests.h"

#include "base/text.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"
#include "web/link_language.h"

namespace vbr {
namespace {

constexpr std::uint32_t kExitBalloonMs = 500;
constexpr std::uint32_t kFailureBalloonMs = 10'000;

}  // namespace

void TrayRequests::InstallAtStart() {
    if (const auto error = with_.Service.InstallService()) {
        with_.Display.TellAtStart(FailureText(*error));
    }
    with_.History.StartWithRetry();
}

std::u16string TrayRequests::FailureText(std::u16string_view error) const {
    std::u16string text(TrimLeft(error, u"\n"));
    if (with_.Service.IsHotkeyTaken()) {
        text += Concat(u"\n", with_.Texts.LoadString(kStrTakeAnotherHotKey));
    }
    return text;
}

void TrayRequests::OnTrayNotify(std::uint32_t notice) {
    switch (notice) {
        case kNoticeLeftButtonUp:
        case kNoticeRightButtonUp:
            with_.View.ShowTrayMenu(TrayMenuPlace::Mouse);
            break;
        case kNoticeSelect:
        case kNoticeKeySelect:
        case kNoticeContextMenu:
            // Of the mouse they come behind its own message, when the menu is open already.
            with_.View.ShowTrayMenu(TrayMenuPlace::Icon);
            break;
        case kNoticeBalloonClick:
            OnBalloonClick();
            break;
        default:
            break;
    }
}

void TrayRequests::OnBalloonClick() {
    if (with_.Service.IsHotkeyTaken()) {
        with_.Companions.StartEditor({.ShowSettings = true});
    } else {
        with_.View.ShowTrayMenu(TrayMenuPlace::Mouse);
    }
}

void TrayRequests::BeginFirstRun(const FileLocations& locations) {
    if (with_.Settings.IsNewVersion() && !locations.Portable) {
        with_.View.StartTimer(kTimerFirstRun, kFirstRunMs);
    }
    if (with_.Settings.WasRead() && !with_.Settings.IsWelcomeAlreadyStarted()) {
        with_.Companions.StartWelcome(true);
    }
}

void TrayRequests::OnInstanceSignal(std::uintptr_t code) {
    if (code == kSignalAlreadyWorks) {
        with_.Flow.WhenIdle([this] {
            std::optional<std::u16string> error;
            if (!with_.Service.IsServiceInstalled()) {
                error = with_.Service.InstallService();
                with_.History.StartWithRetry();
            }
            with_.Sounds.PlayEventSound(EventSound::AlreadyWorks);
            with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon,
                                         with_.Texts.LoadString(kStrAlreadyWorks), true);
            if (error) {
                with_.Display.ShowTrayBalloon(FailureText(*error), kFailureBalloonMs);
            }
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
    with_.Flow.WhenIdle([this] { TakeChanges(); });
}

void TrayRequests::OnEditorState(EditorState state) {
    switch (state) {
        case EditorState::Failed:
            with_.Companions.OnEditorNotStarted();
            break;
        case EditorState::Runs:
            languageBefore_ = with_.Settings.Language;
            break;
        case EditorState::Closed:
            with_.Flow.WhenIdle([this] {
                TakeChanges();
                if (!EqualsNoCase(languageBefore_, with_.Settings.Language)) {
                    with_.Display.UpdateTrayIcon(TrayIconMode::ModifyWithBalloon);
                }
            });
            break;
    }
}

void TrayRequests::TakeChanges() {
    with_.Reader.Read();
    const auto error = with_.Service.Renew();
    ApplySettings();
    if (error) {
        with_.Display.ShowTrayBalloon(FailureText(*error), kFailureBalloonMs);
    }
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
    } else if (id == kTimerFirstRun) {
        with_.Autostart.SetAutostart(true);
        // From now on the settings tell that this version was here.
        with_.Reader.Save();
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

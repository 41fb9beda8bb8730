// SPDX-License-Identifier: MIT
#include "shell/service_control.h"

namespace vbr {

std::optional<std::u16string> ServiceControl::InstallService() {
    isWanted_ = true;
    SetLog(with_.Settings.WriteLog);
    LoadPhrases();
    return InstallHotkey();
}

std::optional<std::u16string> ServiceControl::InstallHotkey() {
    return with_.Hotkey.Install({.TrayWindow = with_.Window,
                                 .QueryMessage = with_.QueryMessage,
                                 .LogPath = with_.LogOfUser.Path(),
                                 .LogAtom = with_.LogOfUser.Atom(),
                                 .AllowWaitAnswer = with_.Menu.IsAllow_WaitAnswerFromExeAgent(),
                                 .Route = with_.Route,
                                 .TargetsAnswer = with_.TargetsAnswer},
                                with_.Files.FileExists(with_.Locations.HookLibrary()));
}

void ServiceControl::StopService() {
    isWanted_ = false;
    with_.Hotkey.Stop();
}

std::optional<std::u16string> ServiceControl::Renew() {
    SetLog(with_.Settings.WriteLog);
    if (!isWanted_) {
        return std::nullopt;
    }
    with_.Hotkey.Stop();
    return InstallHotkey();
}

bool ServiceControl::SetLog(bool on) {
    if (!on) {
        with_.LogOfUser.StopLog();
        return true;
    }
    return with_.LogOfUser.StartLog(with_.Locations.LogFile) || with_.Log.IsLogOn();
}

void ServiceControl::LoadPhrases() {
    // A file that is being swapped in can't be read.
    with_.Saver.Flush();
    with_.Tree.LoadTree(PhrasesFolder());
    with_.Menu.ForgetMissing();
}

TrayState ServiceControl::State(bool elevated) const {
    return {.ServiceInstalled = IsServiceInstalled(),
            .Elevated = elevated,
            .HotkeyName = HotkeyName(),
            .PhrasesFolder = PhrasesFolder(),
            .Phrases = CountPhrases()};
}

std::u16string ServiceControl::PhrasesFolder() const {
    return EffectivePhrasesFolder(with_.Settings.PhrasesDirectory, with_.Locations, with_.Files);
}

}  // namespace vbr

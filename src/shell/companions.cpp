// SPDX-License-Identifier: MIT
#include "shell/companions.h"

#include <memory>
#include <utility>

#include "base/text.h"
#include "settings/editor_arguments.h"
#include "shell/command_line.h"

namespace vbr {
namespace {

struct Way {
    StartWay How;
    std::u16string_view Begins;
    std::u16string_view Fails;
    std::u16string_view Done;
};

constexpr Way kWays[] = {
    {StartWay::Elevated, u"Start the PhraseEditor at ShellExellExecute + query admin rights",
     u"Cannot start PhraseEditor as admin by ShellExecute ",
     u"Succcessfully start PhraseEditor as admin"},
    {StartWay::Direct, u"Start the PhraseEditor at CreateProcess",
     u"Cannot start PhraseEditor as CreateProcess ",
     u"Succcessfully start PhraseEditor as CreateProcess"},
    {StartWay::ByShell, u"Start the PhraseEditor at ShellExellExecute + NO query admin rights",
     u"Cannot start PhraseEditor as NOT admin by ShellExecute ",
     u"Succcessfully start PhraseEditor  as NOT admin by ShellExecute"},
};

// An administrator's process hands its rights on and asks for none.
std::unique_ptr<StartedProcess> StartInSomeWay(ProcessStarter& starter, const std::u16string& path,
                                               const std::u16string& arguments, bool elevated,
                                               Log& log) {
    for (const Way& way : kWays) {
        if (elevated && way.How == StartWay::Elevated) {
            continue;
        }
        log.Write(way.Begins);
        ProcessStart start = starter.Start(way.How, path, arguments);
        if (start.Process) {
            log.Write(way.Done);
            return std::move(start.Process);
        }
        log.Write(Concat(way.Fails, start.Error.Text));
    }
    return nullptr;
}

}  // namespace

void Companions::StartEditor(const EditorStart& start) {
    const std::u16string arguments =
        EditorArguments({start.AddFromClipboard, !start.SelectedText.empty(), start.ShowSettings});
    with_.Shared.HandOver(with_.Settings.HotkeyVk, with_.Settings.HotkeyMods,
                          with_.Settings.Hotkey_Doubled, start.SelectedText);
    with_.OnThread([this, arguments, path = with_.Locations.Editor(),
                    window = start.Window != 0 ? start.Window : with_.Window] {
        const auto editor =
            StartInSomeWay(with_.Processes, path, arguments, with_.Elevated, with_.Log);
        if (!editor) {
            ++failedStarts_;
            with_.Tell(window, EditorState::Failed);
            return;
        }
        with_.Tell(window, EditorState::Runs);
        if (editor->WaitForEnd(with_.Stop)) {
            with_.Tell(window, EditorState::Closed);
        }
    });
}

void Companions::OnEditorNotStarted() {
    if (failedStarts_ == 0) {
        return;
    }
    --failedStarts_;
    with_.View.ShowMessage(u"Cannot start settings module", MessageIcon::Error);
    StartPlainly(with_.Locations.Editor(), {});
}

void Companions::StartPlainly(const std::u16string& path, const std::u16string& arguments) {
    std::u16string failure;
    if (!with_.Files.FileExists(path)) {
        failure = Concat(u"Cannot find file\n", path);
    } else if (const auto error = with_.Opener.Start(
                   with_.Window,
                   {.Path = path, .Arguments = arguments, .Show = ShowState::Maximized})) {
        failure =
            Concat(u"Cannot start the file\n", path, u"Params: ", arguments, u" ", error->Text);
    }
    if (!failure.empty()) {
        with_.Log.Write(failure);
        with_.View.ShowMessage(failure, MessageIcon::Warning);
    }
}

void Companions::StartWelcome(bool byItself) {
    const auto error = with_.Opener.Start(
        with_.Window, {.Path = with_.Locations.Welcome(), .Arguments = byItself ? u"/auto" : u""});
    if (error) {
        with_.Log.Write(Concat(u"The welcome program does not start: ", error->Text));
    }
}

void Companions::RunAsAdministrator() {
    if (!with_.Instance.PrepareTakeOver()) {
        with_.View.ShowMessage(u"Cannot create event for admin instance", MessageIcon::Error, true);
        return;
    }
    if (!with_.Opener.Start(with_.Window, {.Path = with_.Locations.ModulePath,
                                           .Arguments = ElevationArgument(),
                                           .Folder = with_.Locations.ProgramFolder,
                                           .Elevated = true})) {
        with_.View.Close();
        return;
    }
    with_.Instance.CancelTakeOver();
    with_.View.ShowMessage(u"Cannot start second instance of Vellumbridge", MessageIcon::Warning,
                           true);
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/file_access.h"
#include "platform/log.h"
#include "platform/process_starter.h"
#include "platform/shell_opener.h"
#include "platform/window_handle.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "settings/shared_settings.h"
#include "shell/instance_control.h"
#include "shell/tray_view.h"

namespace vbr {

// What a window is told of an editor that it has started.
enum class EditorState { Failed = 0, Runs = 1, Closed = 2 };

// What the editor is started for. The texts reach it through the shared settings area.
struct EditorStart {
    WindowHandle Window = 0;  // that is told of it; 0 for the tray window
    bool AddFromClipboard = false;
    std::u16string SelectedText;
    bool ShowSettings = false;
};

// The programs beside this one: the editor, the welcome program, and this program with an
// administrator's rights. Belongs to the main thread.
class Companions {
  public:
    struct Collaborators {
        const CVBRSettings& Settings;
        const FileLocations& Locations;
        const FileAccess& Files;
        SharedSettings& Shared;
        ProcessStarter& Processes;
        ShellOpener& Opener;
        InstanceControl& Instance;
        TrayView& View;
        NamedEvent& Stop;
        WindowHandle Window = 0;  // the tray window
        bool Elevated = false;    // this process
        // Runs it on a thread of its own, which ends before this object.
        std::function<void(std::function<void()>)> OnThread;
        // On such a thread: tells the window.
        std::function<void(WindowHandle, EditorState)> Tell;
        vbr::Log& Log;
    };

    explicit Companions(Collaborators with) : with_(std::move(with)) {}

    // Starts the editor on a thread that lives as long as the editor: elevated if the user wants
    // it so, else with this process's rights.
    void StartEditor(const EditorStart& start);
    // After all ways have failed: tells the user, and tries the shell once more. Does nothing when
    // no start of this instance has failed.
    void OnEditorNotStarted();

    // By itself at the first start, or by the user. A failure shows nothing.
    void StartWelcome(bool byItself);

    bool MayRunAsAdministrator() const { return !with_.Elevated; }
    // This instance ends when the other is on its way, and runs on when it isn't.
    void RunAsAdministrator();

  private:
    void StartPlainly(const std::u16string& path, const std::u16string& arguments);

    Collaborators with_;
    std::atomic<int> failedStarts_ = 0;  // that were not told yet
};

}  // namespace vbr

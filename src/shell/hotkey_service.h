// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/hook_service.h"
#include "exchange/wait_query.h"
#include "phrases/command_tree.h"
#include "platform/hotkey_registrar.h"
#include "platform/log.h"
#include "platform/named_objects.h"
#include "platform/shared_memory.h"
#include "settings/settings.h"
#include "settings/shared_settings.h"
#include "shell/taken_names.h"

namespace vbr {

// Start-up and service messages of this run, for the user's report.
using MessageList = std::vector<std::u16string>;

// What the program registers and installs so that the hot key brings a menu: the key itself, the
// objects shared with the hook library, the library, and the wait for its queries. Belongs to the
// main thread.
class HotkeyService {
  public:
    struct Collaborators {
        CVBRSettings& Settings;
        CVBRDLLService& Hooks;
        QueryWaiter& Waiter;
        HotkeyRegistrar& Hotkeys;
        NamedObjects& Objects;
        SharedMemory& Memory;
        TakenNames& Taken;
        vbr::Log& Log;
        MessageList& Messages;
    };

    explicit HotkeyService(const Collaborators& with) : with_(with), shared_(with.Memory) {}

    // Turns the service on. On a failure everything made is undone, the text tells the user why,
    // and the message list keeps it.
    std::optional<std::u16string> Install(const HookServiceStart& start, bool libraryExists);
    void Stop();
    // Waits for queries anew after the wait has failed.
    void RestartWait();

    // A query has come from a target and is not yet handed over.
    bool IsQueryOnItsWay() const { return with_.Waiter.IsBusy(); }

    // The hook library is installed: a hot key press will be served.
    bool IsInstalled() const { return with_.Hooks.IsInstalled(); }

    // The last time that the service was turned on, the system refused the key.
    bool IsHotkeyTaken() const { return hotkeyTaken_; }

    // The settings' hot key in words.
    std::u16string HotkeyName() const;

    // What the editor reads about the active hot key and the selected text.
    SharedSettings& Shared() { return shared_; }

  private:
    bool CreateInterchangeObjects();
    void CloseInterchangeObjects();
    std::optional<std::u16string> RegisterHotkey();
    void UnregisterHotkey();
    // For the user's report; gives the message back.
    std::u16string Report(std::u16string_view message);

    Collaborators with_;
    SharedSettings shared_;
    bool hotkeyRegistered_ = false;
    bool hotkeyTaken_ = false;
    std::unique_ptr<SharedBlock> area_;
    std::unique_ptr<NamedEvent> dataNeeded_;
    std::unique_ptr<NamedEvent> dataCompleted_;
};

}  // namespace vbr

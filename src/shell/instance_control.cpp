// SPDX-License-Identifier: MIT
#include "shell/instance_control.h"

#include "base/text.h"
#include "platform/object_names.h"

namespace vbr {
namespace {

constexpr std::uint32_t kTakeOverWaitMs = 10000;

// The wait results as the system numbers them, for the log.
constexpr std::uint32_t kWaitFailed = 0xFFFFFFFF;

}  // namespace

std::optional<int> InstanceControl::Settle(const CVBRCmdLine& cmdLine, std::uint32_t delaySeconds,
                                           const std::function<void()>& makeLanguage,
                                           const std::function<void()>& showHelp) {
    if (cmdLine.Ua()) {
        autostart_.Delete();
    }
    if (const std::optional<int> code = KeepAutoLoadDelay(cmdLine, delaySeconds)) {
        return code;
    }
    makeLanguage();
    const bool editHeard = cmdLine.Edit() && objects_.Signal(kEventEdit);
    if (cmdLine.Help()) {
        showHelp();
    }
    if (editHeard || cmdLine.Help()) {
        return kExitDone;
    }
    if (cmdLine.AsAdmin()) {
        TakeOver();
    }
    if (objects_.Exists(kEventInstance)) {
        SignalRunning(cmdLine);
        return kExitSignalled;
    }
    if (cmdLine.Exit()) {
        return kExitSignalled;
    }
    instance_ = objects_.Create(kEventInstance, EventReset::Manual, ObjectAccess::World);
    if (!instance_) {
        return kExitNoInstanceEvent;
    }
    // Another start in the same instant was the first to make it.
    if (instance_->WasThere()) {
        instance_.reset();
        SignalRunning(cmdLine);
        return kExitSignalled;
    }
    instance_->ProtectFromClose(true);
    return std::nullopt;
}

void InstanceControl::SignalStop() {
    if (instance_) {
        instance_->Set();
    }
}

void InstanceControl::Release() {
    if (instance_) {
        instance_->ProtectFromClose(false);
        instance_.reset();
    }
}

std::optional<int> InstanceControl::KeepAutoLoadDelay(const CVBRCmdLine& cmdLine,
                                                      std::uint32_t delaySeconds) {
    if (cmdLine.AutoLoad()) {
        if (delaySeconds > 0) {
            WaitForNextInstance(delaySeconds);
        }
        return std::nullopt;
    }
    if (objects_.Signal(kEventAutoLoadWait)) {
        log_.Write(u"Signal for automode. Exit");
        return kExitReleasedDelay;
    }
    log_.Write(u"Automode not found. Continue");
    return std::nullopt;
}

void InstanceControl::WaitForNextInstance(std::uint32_t delaySeconds) {
    const auto event =
        objects_.Create(kEventAutoLoadWait, EventReset::Automatic, ObjectAccess::World);
    if (!event) {
        return;
    }
    log_.Write(u"Starting waiting for automode...");
    switch (event->Wait(delaySeconds * 1000)) {
        case WaitResult::Signalled:
            log_.Write(u"INFO: automode disabled WAIT_OBJECT_0");
            break;
        case WaitResult::TimedOut:
            log_.Write(u"INFO: automode expired WAIT_TIMEOUT");
            break;
        case WaitResult::Failed:
            log_.Write(Concat(u"INFO: automode default ", static_cast<std::int32_t>(kWaitFailed)));
            break;
    }
}

void InstanceControl::TakeOver() {
    objects_.Signal(kEventExit);
    if (const auto error = objects_.WaitFor(kEventTakeOver, kTakeOverWaitMs)) {
        log_.LogError(Concat(u"Cannot wait event from first instance\n\nError Code: ", error->Code,
                             u"\n", error->Text));
    }
}

void InstanceControl::SignalRunning(const CVBRCmdLine& cmdLine) {
    if (cmdLine.ShowMenu()) {
        objects_.Signal(kEventShowMenu);
    } else if (cmdLine.Exit()) {
        objects_.Signal(kEventExit);
    } else if (cmdLine.Cfu()) {
        objects_.Pulse(kEventCheckForUpdates);
    } else {
        objects_.Signal(kEventAlreadyWork);
    }
}

}  // namespace vbr

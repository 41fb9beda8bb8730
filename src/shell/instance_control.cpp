// SPDX-License-Identifier: MIT
#include "shell/instance_control.h"

#include "base/text.h"
#include "platform/object_names.h"

namespace vbr {
namespace {

constexpr std::uint32_t kTakeOverWaitMs = 10000;

// An instance that starts listens sooner, and one that ends is gone by then.
constexpr std::uint32_t kUnheardMs = 6000;
constexpr std::uint32_t kStepMs = 20;

// The wait results as the system numbers them, for the log.
constexpr std::uint32_t kWaitFailed = 0xFFFFFFFF;

}  // namespace

std::optional<int> InstanceControl::Settle(const CVBRCmdLine& cmdLine, std::uint32_t delaySeconds,
                                           const StartSteps& steps) {
    if (cmdLine.Ua()) {
        autostart_.Delete();
    }
    if (const std::optional<int> code = KeepAutoLoadDelay(cmdLine, delaySeconds)) {
        return code;
    }
    steps.MakeLanguage();
    if (cmdLine.Edit()) {
        steps.LetOthersToFront();
    }
    const bool editHeard = cmdLine.Edit() && objects_.Signal(kEventEdit);
    if (cmdLine.Help()) {
        steps.ShowHelp();
    }
    if (editHeard || cmdLine.Help()) {
        return kExitDone;
    }
    if (cmdLine.AsAdmin()) {
        TakeOver();
    }
    if (IsAnotherResident(cmdLine.Exit())) {
        return SignalRunning(cmdLine, steps);
    }
    if (cmdLine.Exit()) {
        return kExitSignalled;
    }
    return BecomeResident(cmdLine, steps);
}

// An event that is there while nobody listens belongs to an instance that starts or ends, for a
// moment, or to another program.
bool InstanceControl::IsAnotherResident(bool atOnce) {
    for (std::uint32_t waited = 0; objects_.Exists(kEventInstance); waited += kStepMs) {
        if (atOnce || objects_.Exists(kEventAlreadyWork) || objects_.Exists(kEventExit)) {
            return true;
        }
        if (waited >= kUnheardMs) {
            return false;
        }
        clock_.Sleep(kStepMs);
    }
    return false;
}

std::optional<int> InstanceControl::BecomeResident(const CVBRCmdLine& cmdLine,
                                                   const StartSteps& steps) {
    const bool isTaken = objects_.Exists(kEventInstance);
    if (!isTaken) {
        instance_ = objects_.Create(kEventInstance, EventReset::Manual, ObjectAccess::World);
    }
    // Another start in the same instant was the first to make it.
    if (instance_ && instance_->WasThere()) {
        instance_.reset();
        return SignalRunning(cmdLine, steps);
    }
    // The resident one may have had to do without the event.
    if (!instance_ && objects_.Exists(kEventAlreadyWork)) {
        return SignalRunning(cmdLine, steps);
    }
    if (!instance_) {
        // Without the name nobody finds this instance, and it still needs the event for its end.
        taken_.Note(kEventInstance);
        instance_ = objects_.Create(u"", EventReset::Manual, ObjectAccess::Default);
    }
    if (!instance_) {
        return kExitNoInstanceEvent;
    }
    instance_->ProtectFromClose(true);
    return std::nullopt;
}

void InstanceControl::SignalStop() {
    if (instance_) {
        instance_->Set();
    }
}

bool InstanceControl::PrepareTakeOver() {
    takeOver_ = objects_.Create(kEventTakeOver, EventReset::Manual, ObjectAccess::Default);
    return takeOver_ != nullptr;
}

void InstanceControl::CancelTakeOver() {
    if (takeOver_) {
        takeOver_->Set();
        takeOver_.reset();
    }
}

void InstanceControl::Release() {
    if (instance_) {
        instance_->ProtectFromClose(false);
        instance_.reset();
    }
    // Only now the other one finds no instance.
    CancelTakeOver();
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
        if (BecomesResident()) {
            log_.Write(u"Signal for automode. Exit");
            return kExitReleasedDelay;
        }
        taken_.Note(kEventAutoLoadWait);
    }
    log_.Write(u"Automode not found. Continue");
    return std::nullopt;
}

// Whether the process that was signalled goes on with its start.
bool InstanceControl::BecomesResident() {
    for (std::uint32_t waited = 0; !objects_.Exists(kEventInstance); waited += kStepMs) {
        if (waited >= kUnheardMs) {
            return false;
        }
        clock_.Sleep(kStepMs);
    }
    return true;
}

void InstanceControl::WaitForNextInstance(std::uint32_t delaySeconds) {
    const auto event =
        objects_.Create(kEventAutoLoadWait, EventReset::Automatic, ObjectAccess::World);
    if (!event) {
        taken_.Note(kEventAutoLoadWait);
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

int InstanceControl::SignalRunning(const CVBRCmdLine& cmdLine, const StartSteps& steps) {
    steps.LetOthersToFront();
    if (cmdLine.ShowMenu()) {
        objects_.Signal(kEventShowMenu);
    } else if (cmdLine.Exit()) {
        objects_.Signal(kEventExit);
    } else if (cmdLine.Cfu()) {
        objects_.Pulse(kEventCheckForUpdates);
    } else {
        objects_.Signal(kEventAlreadyWork);
    }
    return kExitSignalled;
}

}  // namespace vbr

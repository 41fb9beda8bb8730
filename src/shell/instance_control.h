// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/autostart.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/named_objects.h"
#include "shell/command_line.h"
#include "shell/taken_names.h"

namespace vbr {

// Exit codes of the process.
inline constexpr int kExitDone = 0;
inline constexpr int kExitSignalled = 1;  // a running instance was told, or none to end
inline constexpr int kExitNoInstanceEvent = 2;
inline constexpr int kExitForced = 3;          // the end was asked for and not reached in time
inline constexpr int kExitReleasedDelay = 12;  // another process left its autostart delay

// What a start does on the way to its decision.
struct StartSteps {
    std::function<void()> MakeLanguage;  // prepares the texts, after the autostart delay
    std::function<void()> ShowHelp;      // shows the list of keys
    // Lets the instance that is signalled next come to the front, as this process may.
    std::function<void()> LetOthersToFront;
};

// Decides what this process is: a control process that signals the running instance and ends, or
// the one resident instance of the session. Named events are all that instances share.
class InstanceControl {
  public:
    InstanceControl(NamedObjects& objects, Autostart& autostart, Clock& clock, TakenNames& taken,
                    Log& log)
        : objects_(objects), autostart_(autostart), clock_(clock), taken_(taken), log_(log) {}

    // The steps up to the instance event. An exit code, or nothing when this process is to be the
    // resident instance and now owns the event, nameless when another program holds the name.
    std::optional<int> Settle(const CVBRCmdLine& cmdLine, std::uint32_t delaySeconds,
                              const StartSteps& steps);

    // The instance event: it exists while this instance runs, and its setting is the stop signal
    // of every thread. Null before Settle has made it.
    NamedEvent* StopEvent() { return instance_.get(); }

    // Tells every thread to stop.
    void SignalStop();

    // Makes the event that an elevated instance waits for, before that is started; false when it
    // can't be made.
    bool PrepareTakeOver();
    // That instance does not come.
    void CancelTakeOver();

    // Lets a new instance start, and the one that takes over go on.
    void Release();

  private:
    std::optional<int> KeepAutoLoadDelay(const CVBRCmdLine& cmdLine, std::uint32_t delaySeconds);
    void WaitForNextInstance(std::uint32_t delaySeconds);
    void TakeOver();
    bool BecomesResident();
    bool IsAnotherResident(bool atOnce);
    std::optional<int> BecomeResident(const CVBRCmdLine& cmdLine, const StartSteps& steps);
    int SignalRunning(const CVBRCmdLine& cmdLine, const StartSteps& steps);

    NamedObjects& objects_;
    Autostart& autostart_;
    Clock& clock_;
    TakenNames& taken_;
    Log& log_;
    std::unique_ptr<NamedEvent> instance_;
    std::unique_ptr<NamedEvent> takeOver_;  // while an elevated instance may wait for it
};

}  // namespace vbr

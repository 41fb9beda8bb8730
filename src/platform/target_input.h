// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "platform/clock.h"
#include "platform/input_injector.h"
#include "platform/input_join.h"
#include "platform/log.h"
#include "platform/target_windows.h"
#include "platform/window_handle.h"

namespace vbr {

// What became of input for a target. Only Read means that all of it arrived.
enum class InputState {
    Read,
    Sent,        // nobody can tell whether it was read
    NotRead,     // the target takes too long
    NotInFront,  // another program has the keyboard: nothing was sent
    NotTaken,    // the system takes no input
};

// The keys for one target while its input is joined: knows when the target has read them, and sends
// none to another program. Where joining is refused, waits by time.
class TargetKeys {
  public:
    // How long a target that has the keyboard is waited for until it reads.
    static constexpr std::uint32_t kReadyMs = 400;

    struct Desktop {
        InputInjector& Input;
        InputJoin& Join;
        const TargetWindows& Windows;
        vbr::Clock& Clock;
        vbr::Log& Log;
    };
    // Waits until the target is in front and reads what is sent. A target that is in front and
    // does not read within the time counts as one that refuses to be joined.
    InputState AwaitReady(std::uint32_t patienceMs = kReadyMs);

    // Sends the events and waits until the target has read them, at most that long; for one whose
    // reading can't be seen the second time. Ends early, with Sent, once `isEnough` holds.
    InputState Send(
        std::span<const KeyEvent> events, std::uint32_t patienceMs, std::uint32_t unjoinedMs,
        const std::function<bool()>& isEnough = [] { return false; });

  private:
    friend class TargetInput;
    TargetKeys(const Desktop& with, WindowHandle target, JoinState join)
        : with_(with), target_(target), join_(join) {}

    // Two keys mark what was sent in turn: one goes down behind it, while the other goes up ahead.
    bool SendMarked(std::span<const KeyEvent> events);
    InputState AwaitMark(std::uint32_t patienceMs, const std::function<bool()>& isEnough);
    void LiftMark();

    const Desktop& with_;
    WindowHandle target_;
    JoinState join_;
    std::uint16_t mark_ = 0;  // the marking key that is down
};

// Knows when a target has read what was sent to it. Any thread may call.
class TargetInput {
  public:
    using Collaborators = TargetKeys::Desktop;

    explicit TargetInput(const Collaborators& with) : with_(with) {}

    // Runs the work with the target's input joined where it lets itself be; what the work gives. A
    // target that answers nothing for that long gets no keys: NotRead.
    InputState Use(WindowHandle target, std::uint32_t patienceMs,
                   const std::function<InputState(TargetKeys&)>& work);

  private:
    Collaborators with_;
};

}  // namespace vbr

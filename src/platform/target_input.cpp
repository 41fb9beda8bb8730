// SPDX-License-Identifier: MIT
#include "platform/target_input.h"

#include <vector>

#include "platform/key_sending.h"

namespace vbr {
namespace {

constexpr std::uint32_t kStepMs = 1;
constexpr std::uint32_t kFrontStepMs = 5;
constexpr std::uint32_t kUnjoinedStepMs = 5;
constexpr std::uint32_t kUnjoinedReadyMs = 100;
// A target that is idle reads within this many looks.
constexpr int kLooksWithoutPause = 64;

}  // namespace

InputState TargetKeys::AwaitReady(std::uint32_t patienceMs) {
    const std::uint32_t start = with_.Clock.TickCount();
    while (!with_.Windows.IsInFront(target_)) {
        if (with_.Clock.TickCount() - start >= patienceMs) {
            return InputState::NotInFront;
        }
        with_.Clock.Sleep(kFrontStepMs);
    }
    const InputState state = Send({}, patienceMs, kUnjoinedReadyMs);
    if (state != InputState::NotRead) {
        return state;
    }
    // It may read its keys in another thread than that of its window.
    isJoined_ = false;
    return InputState::Sent;
}

InputState TargetKeys::Send(std::span<const KeyEvent> events, std::uint32_t patienceMs,
                            std::uint32_t unjoinedMs, const std::function<bool()>& isEnough) {
    if (!with_.Windows.IsInFront(target_)) {
        return InputState::NotInFront;
    }
    const bool before = isJoined_ && with_.Input.IsToggled(kVkUnassigned);
    std::vector<KeyEvent> marked(events.begin(), events.end());
    if (isJoined_) {
        const std::vector<KeyEvent> mark = UnknownKeyPress();
        marked.insert(marked.end(), mark.begin(), mark.end());
    }
    if (!marked.empty() && !SendAll(marked, with_.Input, with_.Log)) {
        return InputState::NotTaken;
    }
    if (isJoined_) {
        return AwaitMark(before, patienceMs, isEnough);
    }
    const std::uint32_t start = with_.Clock.TickCount();
    while (with_.Clock.TickCount() - start < unjoinedMs && !isEnough()) {
        with_.Clock.Sleep(kUnjoinedStepMs);
    }
    return InputState::Sent;
}

// The state of the joined input turns when the target has read the mark, and with it all before.
InputState TargetKeys::AwaitMark(bool before, std::uint32_t patienceMs,
                                 const std::function<bool()>& isEnough) {
    for (int look = 0; look < kLooksWithoutPause; ++look) {
        if (with_.Input.IsToggled(kVkUnassigned) != before) {
            return InputState::Read;
        }
        with_.Clock.Sleep(0);
    }
    const std::uint32_t start = with_.Clock.TickCount();
    while (with_.Input.IsToggled(kVkUnassigned) == before) {
        if (isEnough()) {
            return InputState::Sent;
        }
        if (!with_.Windows.IsInFront(target_)) {
            // The keys may be what brought another one to the front.
            return InputState::Sent;
        }
        if (with_.Clock.TickCount() - start >= patienceMs) {
            return InputState::NotRead;
        }
        with_.Clock.Sleep(kStepMs);
    }
    return InputState::Read;
}

InputState TargetInput::Use(WindowHandle target,
                            const std::function<InputState(TargetKeys&)>& work) {
    InputState result = InputState::NotTaken;
    with_.Join.Run(target, [&](bool isJoined) {
        TargetKeys keys(with_, target, isJoined);
        result = work(keys);
    });
    return result;
}

}  // namespace vbr

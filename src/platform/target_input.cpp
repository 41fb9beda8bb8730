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
constexpr std::uint32_t kMarkAgainMs = 1000;
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
    if (state != InputState::NotRead || join_ == JoinState::Hung) {
        return state;
    }
    // It may read its keys in another thread than that of its window.
    join_ = JoinState::Refused;
    return InputState::Sent;
}

InputState TargetKeys::Send(std::span<const KeyEvent> events, std::uint32_t patienceMs,
                            std::uint32_t unjoinedMs, const std::function<bool()>& isEnough) {
    if (!with_.Windows.IsInFront(target_)) {
        return InputState::NotInFront;
    }
    if (join_ == JoinState::Hung) {
        return InputState::NotRead;
    }
    if (join_ == JoinState::Joined) {
        return SendMarked(events) ? AwaitMark(patienceMs, isEnough) : InputState::NotTaken;
    }
    if (!events.empty() && !SendAll(events, with_.Input, with_.Log)) {
        return InputState::NotTaken;
    }
    const std::uint32_t start = with_.Clock.TickCount();
    while (with_.Clock.TickCount() - start < unjoinedMs && !isEnough()) {
        with_.Clock.Sleep(kUnjoinedStepMs);
    }
    return InputState::Sent;
}

bool TargetKeys::SendMarked(std::span<const KeyEvent> events) {
    const auto otherThan = [](std::uint16_t vk) {
        return vk == kVkUnassigned ? kVkUnassigned2 : kVkUnassigned;
    };
    mark_ = otherThan(mark_);
    // One that an end without input has left down would show at once.
    if (with_.Input.IsDownAsRead(mark_)) {
        mark_ = otherThan(mark_);
    }
    std::vector<KeyEvent> marked = {{.Vk = otherThan(mark_), .Flags = kKeyUp}};
    marked.reserve(events.size() + 2);
    marked.insert(marked.end(), events.begin(), events.end());
    marked.push_back({.Vk = mark_});
    return SendAll(marked, with_.Input, with_.Log);
}

// The joined key state shows the mark when the target has read it, and with it all before.
InputState TargetKeys::AwaitMark(std::uint32_t patienceMs, const std::function<bool()>& isEnough) {
    const std::uint32_t start = with_.Clock.TickCount();
    std::uint32_t markedAt = start;
    for (int look = 0; !with_.Input.IsDownAsRead(mark_); ++look) {
        if (look < kLooksWithoutPause) {
            with_.Clock.Sleep(0);
            continue;
        }
        const std::uint32_t now = with_.Clock.TickCount();
        if (isEnough() || !with_.Windows.IsInFront(target_)) {
            // The keys may be what brought another one to the front.
            return InputState::Sent;
        }
        if (now - start >= patienceMs) {
            return InputState::NotRead;
        }
        if (now - markedAt >= kMarkAgainMs) {
            // What changes the state of the whole keyboard can have taken the mark away.
            markedAt = now;
            SendMarked({});
        }
        with_.Clock.Sleep(kStepMs);
    }
    return InputState::Read;
}

void TargetKeys::LiftMark() {
    if (mark_ != 0) {
        const KeyEvent up[] = {{.Vk = mark_, .Flags = kKeyUp}};
        SendAll(up, with_.Input, with_.Log);
    }
}

InputState TargetInput::Use(WindowHandle target, std::uint32_t patienceMs,
                            const std::function<InputState(TargetKeys&)>& work) {
    InputState result = InputState::NotTaken;
    with_.Join.Run(target, patienceMs, [&](JoinState join) {
        TargetKeys keys(with_, target, join);
        result = work(keys);
        keys.LiftMark();
    });
    return result;
}

}  // namespace vbr

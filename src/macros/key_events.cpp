// SPDX-License-Identifier: MIT
#include "macros/key_events.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kKeyTime = 400;  // the time stamp of real keys
constexpr std::uint32_t kReleaseMs = 1000;
constexpr std::uint32_t kReleaseStepMs = 10;

constexpr std::uint16_t kHeldByUser[] = {kVkMenu, kVkShift, kVkLeftWin, kVkRightWin};
constexpr std::uint16_t kReleasedForPaste[] = {kVkShift, kVkControl, kVkMenu};

void AddKey(std::vector<KeyEvent>& events, const KeyEvent& down) {
    KeyEvent up = down;
    up.Flags |= kKeyUp;
    events.push_back(down);
    events.push_back(up);
}

KeyEvent EventFor(char16_t unit, const InputInjector& input) {
    const std::uint16_t code = unit;
    if (unit == u'\t' || unit == u'\n' || unit == u'\r') {
        return {.Vk = code, .Scan = input.ScanCode(code), .Flags = 0, .Time = kKeyTime};
    }
    return {.Vk = 0, .Scan = code, .Flags = kKeyUnicode, .Time = 0};
}

void AddCursorSteps(std::vector<KeyEvent>& events, std::size_t steps) {
    for (std::size_t i = 0; i < steps; ++i) {
        AddKey(events, {.Vk = kVkLeft});
    }
}

bool HoldsAny(const InputInjector& input) {
    return std::any_of(std::begin(kHeldByUser), std::end(kHeldByUser),
                       [&input](std::uint16_t vk) { return input.IsKeyDown(vk); });
}

}  // namespace

std::vector<KeyEvent> PrintEvents(std::u16string_view text, std::size_t cursorBack,
                                  const InputInjector& input) {
    std::vector<KeyEvent> events;
    events.reserve(2 * (text.size() + cursorBack) + 1);
    for (const char16_t unit : text) {
        AddKey(events, EventFor(unit, input));
    }
    if (cursorBack > 0) {
        events.push_back({.Vk = kVkShift, .Flags = kKeyUp});
    }
    AddCursorSteps(events, cursorBack);
    return events;
}

std::vector<KeyEvent> PasteEvents(const InputInjector& input) {
    const auto key = [&input](std::uint16_t vk, std::uint32_t flags) {
        return KeyEvent{.Vk = vk, .Scan = input.ScanCode(vk), .Flags = flags, .Time = 0};
    };
    std::vector<KeyEvent> events;
    for (const std::uint16_t vk : kReleasedForPaste) {
        if (input.HasKeyState(vk)) {
            events.push_back(key(vk, kKeyUp));
        }
    }
    for (const KeyEvent& event :
         {key(kVkControl, 0), key(kVkV, 0), key(kVkV, kKeyUp), key(kVkControl, kKeyUp)}) {
        events.push_back(event);
    }
    return events;
}

std::vector<KeyEvent> CursorEvents(std::size_t steps) {
    std::vector<KeyEvent> events;
    events.reserve(2 * steps);
    AddCursorSteps(events, steps);
    return events;
}

std::size_t CursorStepsAtOnce(std::size_t steps) {
    if (steps <= 3) {
        return 1;
    }
    if (steps <= 10) {
        return 2;
    }
    return steps <= 100 ? 4 : steps / 100;
}

bool SendAll(std::span<const KeyEvent> events, InputInjector& input, Log& log) {
    std::size_t sent = 0;
    while (sent < events.size()) {
        const std::size_t taken = input.Send(events.subspan(sent));
        sent += taken;
        if (taken == 0) {
            log.LogError(Concat(u"The system takes no input, not sent: ", events.size() - sent,
                                u" of ", events.size(), u" key events"));
            return false;
        }
        if (sent < events.size()) {
            log.Write(
                Concat(u"The system took ", sent, u" of ", events.size(), u" key events so far"));
        }
    }
    return true;
}

void WaitForRelease(const InputInjector& input, Clock& clock, Log& log) {
    const std::uint32_t start = clock.TickCount();
    while (HoldsAny(input)) {
        if (clock.TickCount() - start >= kReleaseMs) {
            log.Write(u"Alt, Shift or a Windows key is still held down");
            return;
        }
        clock.Sleep(kReleaseStepMs);
    }
}

}  // namespace vbr

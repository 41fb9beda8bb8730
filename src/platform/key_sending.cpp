// SPDX-License-Identifier: MIT
#include "platform/key_sending.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kReleaseStepMs = 5;
// While its modifiers are down, what a hot key repeats is the hot key again and does no harm.
constexpr std::uint32_t kRepeatingMs = 1000;

// The left one of a pair, then the right one.
constexpr std::uint16_t kModifiers[] = {kVkLeftShift,    kVkRightShift, kVkLeftControl,
                                        kVkRightControl, kVkLeftMenu,   kVkRightMenu,
                                        kVkLeftWin,      kVkRightWin};

// Keys that a keyboard marks as its additional ones; without the mark an arrow is one of the
// number pad.
bool IsExtended(std::uint16_t vk) {
    constexpr std::uint16_t kExtended[] = {kVkLeft, kVkRightControl, kVkRightMenu, kVkLeftWin,
                                           kVkRightWin};
    return std::ranges::find(kExtended, vk) != std::end(kExtended);
}

std::vector<std::uint16_t> HeldModifiers(const InputInjector& input) {
    std::vector<std::uint16_t> held;
    std::ranges::copy_if(kModifiers, std::back_inserter(held),
                         [&input](std::uint16_t vk) { return input.IsKeyDown(vk); });
    return held;
}

}  // namespace

KeyEvent KeyOf(std::uint16_t vk, std::uint32_t flags, const InputInjector& input) {
    return {
        .Vk = vk, .Scan = input.ScanCode(vk), .Flags = flags | (IsExtended(vk) ? kKeyExtended : 0)};
}

std::vector<KeyEvent> CtrlWith(std::uint16_t vk, const InputInjector& input) {
    return {KeyOf(kVkControl, 0, input), KeyOf(vk, 0, input), KeyOf(vk, kKeyUp, input),
            KeyOf(kVkControl, kKeyUp, input)};
}

std::vector<KeyEvent> UnknownKeyPress() {
    return {{.Vk = kVkUnassigned3}, {.Vk = kVkUnassigned3, .Flags = kKeyUp}};
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

bool AwaitRelease(std::uint32_t patienceMs, std::uint16_t other, InputInjector& input, Clock& clock,
                  Log& log) {
    const auto isOtherDown = [&] { return other != 0 && input.IsKeyDown(other); };
    const std::uint32_t start = clock.TickCount();
    std::vector<std::uint16_t> held = HeldModifiers(input);
    while (!held.empty() || isOtherDown()) {
        if (clock.TickCount() - start >= (isOtherDown() ? kRepeatingMs : patienceMs)) {
            break;
        }
        clock.Sleep(kReleaseStepMs);
        held = HeldModifiers(input);
    }
    if (held.empty() || isOtherDown()) {
        return !isOtherDown();
    }
    // Alt or a Windows key that goes up alone would open a menu.
    std::vector<KeyEvent> events = UnknownKeyPress();
    for (const std::uint16_t vk : held) {
        events.push_back(KeyOf(vk, kKeyUp, input));
    }
    log.Write(Concat(u"Keys that the user still holds are let go: ", held.size()));
    SendAll(events, input, log);
    return true;
}

}  // namespace vbr

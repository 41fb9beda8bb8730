// SPDX-License-Identifier: MIT
#include "macros/text_delivery.h"

#include <array>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kKeyTime = 400;  // the time stamp of real keys

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
    for (std::size_t i = 0; i < cursorBack; ++i) {
        AddKey(events, {.Vk = kVkLeft});
    }
    return events;
}

bool TextDelivery::DeliverText(std::u16string_view text, std::size_t cursorBack) {
    log_.Write(Concat(u"DoPrint: ", text));
    return PrintText(text, cursorBack);
}

bool TextDelivery::PrintText(std::u16string_view text, std::size_t cursorBack) {
    if (text.empty()) {
        return false;
    }
    const std::array<KeyEvent, 1> controlUp = {{{.Vk = kVkControl, .Flags = kKeyUp}}};
    input_.Send(controlUp);
    input_.Send(PrintEvents(text, cursorBack, input_));
    return true;
}

}  // namespace vbr

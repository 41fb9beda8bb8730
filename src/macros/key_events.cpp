// SPDX-License-Identifier: MIT
#include "macros/key_events.h"

#include "base/text.h"
#include "platform/key_sending.h"

namespace vbr {
namespace {

bool IsKey(char16_t unit) {
    return unit == u'\t' || unit == u'\n' || unit == u'\r';
}

void AddPress(std::vector<KeyEvent>& events, const KeyEvent& down) {
    KeyEvent up = down;
    up.Flags |= kKeyUp;
    events.push_back(down);
    events.push_back(up);
}

}  // namespace

std::vector<KeyEvent> PrintEvents(std::u16string_view text, const InputInjector& input) {
    std::vector<KeyEvent> events;
    events.reserve(2 * text.size());
    for (const char16_t unit : text) {
        AddPress(events, IsKey(unit) ? KeyOf(unit, 0, input)
                                     : KeyEvent{.Scan = unit, .Flags = kKeyUnicode});
    }
    return events;
}

std::vector<KeyEvent> CursorEvents(std::size_t steps, const InputInjector& input) {
    std::vector<KeyEvent> events;
    events.reserve(2 * steps);
    for (std::size_t i = 0; i < steps; ++i) {
        AddPress(events, KeyOf(kVkLeft, 0, input));
    }
    return events;
}

std::u16string_view NextPiece(std::u16string_view text) {
    if (text.size() <= kPieceLength) {
        return text;
    }
    const char16_t last = text[kPieceLength - 1];
    const bool isFirstOfTwo = (last >= 0xD800 && last < 0xDC00) || last == u'\r';
    return text.substr(0, isFirstOfTwo ? kPieceLength - 1 : kPieceLength);
}

}  // namespace vbr

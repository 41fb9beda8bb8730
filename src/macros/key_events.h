// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/input_injector.h"
#include "platform/log.h"

namespace vbr {

// The keyboard events that type a text: a Unicode pair for each UTF-16 unit, real keys for TAB, CR
// and LF, then `cursorBack` steps of the left cursor key.
std::vector<KeyEvent> PrintEvents(std::u16string_view text, std::size_t cursorBack,
                                  const InputInjector& input);

// Ctrl+V, and before it the release of each of Shift, Ctrl and Alt that the thread sees pressed.
std::vector<KeyEvent> PasteEvents(const InputInjector& input);

// Steps of the left cursor key.
std::vector<KeyEvent> CursorEvents(std::size_t steps);

// How many cursor steps a paste makes between two short waits, for that many steps in all.
std::size_t CursorStepsAtOnce(std::size_t steps);

// Sends all events; what the system left over goes in further calls. False, with a log line, as
// soon as a call takes nothing.
bool SendAll(std::span<const KeyEvent> events, InputInjector& input, Log& log);

// Waits up to a second until the user has let Alt, Shift and the Windows keys go, which would make
// shortcuts of the events that follow.
void WaitForRelease(const InputInjector& input, Clock& clock, Log& log);

}  // namespace vbr

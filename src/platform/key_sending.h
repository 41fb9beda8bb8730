// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/clock.h"
#include "platform/input_injector.h"
#include "platform/log.h"

namespace vbr {

// A key that goes down, or up with kKeyUp, with the scan code that a keyboard would send.
KeyEvent KeyOf(std::uint16_t vk, std::uint32_t flags, const InputInjector& input);

// Ctrl with another key, pressed and let go.
std::vector<KeyEvent> CtrlWith(std::uint16_t vk, const InputInjector& input);

// One press of a key that no program knows and that marks nothing.
std::vector<KeyEvent> UnknownKeyPress();

// Sends all events; what the system left over goes in further calls. False, with a log line, as
// soon as a call takes nothing.
bool SendAll(std::span<const KeyEvent> events, InputInjector& input, Log& log);

// Waits until the user has let Shift, Ctrl, Alt, the Windows keys and that other key, if any, go,
// which would make shortcuts of what follows. Modifiers that are held longer are let go here,
// without opening menus; the other key gets a second. False when it is still down.
bool AwaitRelease(std::uint32_t patienceMs, std::uint16_t other, InputInjector& input, Clock& clock,
                  Log& log);

}  // namespace vbr

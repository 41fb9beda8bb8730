// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "hook/posted/hook_setup.h"

namespace vbr::hook {

// Describes the window of the message, which the calling thread has just taken from its queue, in
// the interchange area, and tells the program. What the window's own code takes too long to answer
// is told as unknown after kAnswerMs, whether that code has returned or not. A message that waited
// longer than kFreshMs, and one that comes before the last description is read, is not answered.
// While code of the window may run within, a guard keeps the library in the process. Unless null,
// the event that comes back lets it go: the calling thread sets it as its last call.
HANDLE AnswerQuery(const MSG& message, const HookSetup& setup);

inline constexpr DWORD kAnswerMs = 150;
inline constexpr DWORD kFreshMs = 3000;

}  // namespace vbr::hook

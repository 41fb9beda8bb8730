// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "hook/hook_setup.h"

namespace vbr::hook {

// Describes the window of the message, which the calling thread has just taken from its queue, in
// the interchange area, and tells the program. What the window's own code takes too long to answer
// is told as unknown after kAnswerMs, whether that code has returned or not. A message that waited
// longer than kFreshMs, and one that comes before the last description is read, is not answered.
void AnswerQuery(const MSG& message, const HookSetup& setup);

inline constexpr DWORD kAnswerMs = 150;
inline constexpr DWORD kFreshMs = 3000;

}  // namespace vbr::hook

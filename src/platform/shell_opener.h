// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/window_handle.h"

namespace vbr {

// How an opened program's window comes up.
enum class ShowState : std::int32_t { Maximized = 3, Normal = 5 };

// Opens documents and addresses with the program that the user has chosen for them.
class ShellOpener {
  public:
    virtual ~ShellOpener() = default;

    // The shell's answer: above 32 on success, else an error number.
    virtual std::intptr_t Open(WindowHandle owner, std::u16string_view target, ShowState show) = 0;
};

}  // namespace vbr

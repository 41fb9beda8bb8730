// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// What the log says about a window.
struct WindowState {
    WindowHandle Window = 0;
    bool IsWindow = false;
    std::u16string ClassName;  // empty when it is no window
};

// One entry without prefix and date; the heading may be empty.
void LogWindow(Log& log, std::u16string_view heading, const WindowState& state);

// Two entries with the section as their prefix. No section stands after it.
void LogWindowState(Log& log, const WindowState& state, std::u16string_view section);

}  // namespace vbr

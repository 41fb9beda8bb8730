// SPDX-License-Identifier: MIT
#include "diagnostics/window_entries.h"

namespace vbr {

void LogWindow(Log& log, std::u16string_view heading, const WindowState& state) {
    const std::u16string start = heading.empty() ? std::u16string() : Concat(heading, u": ");
    // As the system prints handles: their low 32 bits, with a sign.
    log.WriteBare(Concat(start, u"IsWindow HWND=", static_cast<std::int32_t>(state.Window), u" ? ",
                         int{state.IsWindow}, u"; CLASSNAME: [", state.ClassName, u"]"));
}

void LogWindowState(Log& log, const WindowState& state, std::u16string_view section) {
    const LogSection prefix(log, section);
    log.Write(Concat(u"IsWindow=", int{state.IsWindow}));
    log.Write(Concat(u"classname=[", state.ClassName, u"]"));
}

}  // namespace vbr

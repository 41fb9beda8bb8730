// SPDX-License-Identifier: MIT
#include "shell/autostart_control.h"

#include "base/text.h"
#include "shell/command_line.h"

namespace vbr {

bool AutostartControl::IsAutostart() const {
    const std::u16string value = autostart_.Read().value_or(u"");
    const std::u16string_view path = std::u16string_view(value).substr(0, value.find(u'/'));
    // Others write the path in quotes.
    return EqualsNoCase(Trim(path, u" \t\""), modulePath_);
}

void AutostartControl::SetAutostart(bool on) {
    if (!on) {
        autostart_.Delete();
    } else if (!autostart_.Write(Concat(modulePath_, u" ", AutoLoadArgument()))) {
        log_.LogError(u"Windows refuses the value that starts the program");
    }
}

void AutostartControl::Invert() {
    const bool wanted = !IsAutostart();
    SetAutostart(wanted);
    if (wanted) {
        autostart_.Allow();
    }
}

}  // namespace vbr

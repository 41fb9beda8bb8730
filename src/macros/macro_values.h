// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/date_forms.h"
#include "platform/locale.h"
#include "platform/system_info.h"

namespace vbr {

// What the values of one expansion are made from.
struct MacroInput {
    std::u16string_view SelText;        // what is selected in the target
    std::u16string_view ClipboardText;  // the clipboard's text when the hot key came
    Lcid Language = 0;                  // for names and dates
    bool MarksValues = false;           // in the text, by value_marks.h
};

// The value of each macro token. A token that isn't known gives an empty text.
class MacroValues {
  public:
    // What a form of date or time gave last; all phrases of a menu ask within one second.
    struct KnownDate {
        Lcid Language = 0;
        SystemTime Time;
        std::u16string Text;
    };
    using KnownDates = std::array<KnownDate, kDateTimeModes>;

    MacroValues(const Clock& clock, const Locale& locale, const SystemInfo& system)
        : clock_(clock), locale_(locale), system_(system) {}

    std::u16string MacroValue(std::u16string_view macro, const MacroInput& input) const;

    // The tokens that every system has, ascending; the layout tokens come on top of these.
    static std::span<const std::u16string_view> FixedTokens();

  private:
    const Clock& clock_;
    const Locale& locale_;
    const SystemInfo& system_;
    mutable KnownDates dates_;
};

}  // namespace vbr

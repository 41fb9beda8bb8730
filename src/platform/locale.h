// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/date_time.h"

namespace vbr {

// A locale or language identifier as Windows numbers them (0x0409 is English, United States).
using Lcid = std::uint32_t;

enum class NameForm { Full, Short };

// Forms and names of a language, as the system gives them. A failure gives an empty text.
class Locale {
  public:
    virtual ~Locale() = default;

    virtual Lcid UserDefault() const = 0;
    // That of the calling thread, which is the user's unless something changed it.
    virtual Lcid ThreadLocale() const = 0;
    virtual std::u16string LongDate(Lcid lcid, const SystemTime& time) const = 0;
    // Hours, minutes and seconds in 24-hour form.
    virtual std::u16string Time24(Lcid lcid, const SystemTime& time) const = 0;
    // `dayOfWeek` 0 is Sunday.
    virtual std::u16string WeekdayName(Lcid lcid, int dayOfWeek, NameForm form) const = 0;
    // `month` 1 to 12, any other gives an empty text.
    virtual std::u16string MonthName(Lcid lcid, int month, NameForm form) const = 0;
    // Two letters such as "en".
    virtual std::u16string Iso639Name(Lcid lcid) const = 0;
    // The language's name, such as "English (United States)".
    virtual std::u16string LanguageName(Lcid lcid) const = 0;
    // Three letters such as "ENU".
    virtual std::u16string LanguageAbbreviation(Lcid lcid) const = 0;
    virtual std::u16string Upper(std::u16string_view text) const = 0;
    virtual std::u16string Lower(std::u16string_view text) const = 0;
};

}  // namespace vbr

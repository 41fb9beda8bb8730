// SPDX-License-Identifier: MIT
#include "platform/date_forms.h"

#include "base/text.h"

namespace vbr {
namespace {

std::u16string DateWithoutWeekday(const Locale& locale, Lcid lcid, const SystemTime& time) {
    std::u16string date = locale.LongDate(lcid, time);
    for (int day = 0; day < 7; ++day) {
        ReplaceAll(date, locale.WeekdayName(lcid, day, NameForm::Full), u"");
    }
    return std::u16string(Trim(date, u" ,"));
}

}  // namespace

std::u16string FormatDateTime(DateTimeMode mode, const Locale& locale, Lcid lcid,
                              const SystemTime& time) {
    switch (mode) {
        case DateTimeMode::DateTime:
            return Concat(locale.LongDate(lcid, time), u" ", locale.Time24(lcid, time));
        case DateTimeMode::Date:
            return locale.LongDate(lcid, time);
        case DateTimeMode::Time:
            return locale.Time24(lcid, time);
        case DateTimeMode::DateTimeWithoutWeekday:
            return Concat(DateWithoutWeekday(locale, lcid, time), u" ", locale.Time24(lcid, time));
        case DateTimeMode::DateWithoutWeekday:
            return DateWithoutWeekday(locale, lcid, time);
    }
    return {};
}

}  // namespace vbr

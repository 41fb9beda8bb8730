// SPDX-License-Identifier: MIT
#include "diagnostics/log_entry.h"

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::size_t kLineMax = 102'388;
constexpr std::u16string_view kLineEnd = u"\r\n";

std::u16string TwoDigits(unsigned number) {
    const std::u16string digits = ToDecimal(number % 100);
    return digits.size() < 2 ? u"0" + digits : digits;
}

}  // namespace

std::u16string FormLogEntry(std::u16string_view prefix, std::u16string_view text,
                            const SystemTime& localTime) {
    const std::u16string date = Concat(TwoDigits(localTime.Month), u"/", TwoDigits(localTime.Day),
                                       u"/", TwoDigits(localTime.Year));
    const std::u16string time = Concat(TwoDigits(localTime.Hour), u":", TwoDigits(localTime.Minute),
                                       u":", TwoDigits(localTime.Second));
    const bool tooLong = prefix.size() + text.size() + date.size() + time.size() >= kLineMax;
    std::u16string entry =
        tooLong ? std::u16string(text) : Concat(prefix, u": [", date, u" ", time, u"] ", text);
    if (!entry.ends_with(kLineEnd)) {
        entry += kLineEnd;
    }
    return entry;
}

}  // namespace vbr

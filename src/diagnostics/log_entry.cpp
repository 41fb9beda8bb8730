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

std::u16string DateOf(const SystemTime& time) {
    return Concat(TwoDigits(time.Month), u"/", TwoDigits(time.Day), u"/", TwoDigits(time.Year));
}

std::u16string TimeOf(const SystemTime& time) {
    return Concat(TwoDigits(time.Hour), u":", TwoDigits(time.Minute), u":", TwoDigits(time.Second));
}

}  // namespace

std::u16string FormLogEntry(std::u16string_view prefix, std::u16string_view text,
                            const SystemTime& localTime) {
    const std::u16string date = DateOf(localTime);
    const std::u16string time = TimeOf(localTime);
    const bool tooLong = prefix.size() + text.size() + date.size() + time.size() >= kLineMax;
    return EndLogEntry(tooLong ? std::u16string(text)
                               : Concat(prefix, u": [", date, u" ", time, u"] ", text));
}

std::u16string FormQueuedLine(std::u16string_view text, const SystemTime& localTime) {
    return Concat(kDefaultLogPrefix, u" [", DateOf(localTime), u" ", TimeOf(localTime), u"] ",
                  text);
}

std::u16string EndLogEntry(std::u16string entry) {
    if (!entry.ends_with(kLineEnd)) {
        entry += kLineEnd;
    }
    return entry;
}

}  // namespace vbr

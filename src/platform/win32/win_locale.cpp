// SPDX-License-Identifier: MIT
#include "platform/win32/win_locale.h"

#include "platform/win32/windows.h"

#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr int kDateMax = 100;  // UTF-16 units with the terminator
constexpr int kNameMax = 260;

SYSTEMTIME ToWindows(const SystemTime& time) {
    return {time.Year, time.Month,  time.DayOfWeek, time.Day,
            time.Hour, time.Minute, time.Second,    time.Milliseconds};
}

// The Windows calls report the length with its terminator, and 0 for a failure.
std::u16string Counted(const wchar_t* buffer, int length) {
    return length > 0 ? FromWide(buffer, static_cast<std::size_t>(length - 1)) : std::u16string();
}

std::u16string LocaleString(Lcid lcid, LCTYPE type) {
    wchar_t buffer[kNameMax];
    return Counted(buffer, GetLocaleInfoW(lcid, type, buffer, kNameMax));
}

}  // namespace

Lcid WinLocale::UserDefault() const {
    return GetUserDefaultLCID();
}

Lcid WinLocale::ThreadLocale() const {
    return GetThreadLocale();
}

std::u16string WinLocale::LongDate(Lcid lcid, const SystemTime& time) const {
    const SYSTEMTIME date = ToWindows(time);
    wchar_t buffer[kDateMax];
    return Counted(buffer, GetDateFormatW(lcid, DATE_LONGDATE, &date, nullptr, buffer, kDateMax));
}

std::u16string WinLocale::Time24(Lcid lcid, const SystemTime& time) const {
    const SYSTEMTIME date = ToWindows(time);
    wchar_t buffer[kDateMax];
    return Counted(buffer, GetTimeFormatW(lcid, TIME_NOTIMEMARKER | TIME_FORCE24HOURFORMAT, &date,
                                          nullptr, buffer, kDateMax));
}

std::u16string WinLocale::WeekdayName(Lcid lcid, int dayOfWeek, NameForm form) const {
    if (dayOfWeek < 0 || dayOfWeek > 6) {
        return {};
    }
    const auto fromMonday = static_cast<LCTYPE>((dayOfWeek + 6) % 7);
    const LCTYPE first = form == NameForm::Full ? LOCALE_SDAYNAME1 : LOCALE_SABBREVDAYNAME1;
    return LocaleString(lcid, first + fromMonday);
}

std::u16string WinLocale::MonthName(Lcid lcid, int month, NameForm form) const {
    if (month < 1 || month > 12) {
        return {};
    }
    const LCTYPE first = form == NameForm::Full ? LOCALE_SMONTHNAME1 : LOCALE_SABBREVMONTHNAME1;
    return LocaleString(lcid, first + static_cast<LCTYPE>(month - 1));
}

std::u16string WinLocale::Iso639Name(Lcid lcid) const {
    return LocaleString(lcid, LOCALE_SISO639LANGNAME);
}

std::u16string WinLocale::LanguageName(Lcid lcid) const {
    return LocaleString(lcid, LOCALE_SLANGUAGE);
}

std::u16string WinLocale::LanguageAbbreviation(Lcid lcid) const {
    return LocaleString(lcid, LOCALE_SABBREVLANGNAME);
}

std::u16string WinLocale::Upper(std::u16string_view text) const {
    std::u16string out(text);
    CharUpperBuffW(Wide(out.data()), static_cast<DWORD>(out.size()));
    return out;
}

std::u16string WinLocale::Lower(std::u16string_view text) const {
    std::u16string out(text);
    CharLowerBuffW(Wide(out.data()), static_cast<DWORD>(out.size()));
    return out;
}

}  // namespace vbr

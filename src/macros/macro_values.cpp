// SPDX-License-Identifier: MIT
#include "macros/macro_values.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "base/text.h"
#include "macros/number_words.h"
#include "macros/url_text.h"
#include "platform/date_forms.h"

namespace vbr {
namespace {

struct Sources {
    const Clock& Now;
    const Locale& Forms;
    const SystemInfo& System;
    const MacroInput& Input;
    MacroValues::KnownDates& Dates;
};

using Value = std::u16string (*)(const Sources&);

template <DateTimeMode Mode>
std::u16string DateForm(const Sources& s) {
    SystemTime now = s.Now.LocalTime();
    now.Milliseconds = 0;
    MacroValues::KnownDate& known = s.Dates[static_cast<std::size_t>(Mode)];
    if (known.Text.empty() || known.Language != s.Input.Language || known.Time != now) {
        known = {s.Input.Language, now, FormatDateTime(Mode, s.Forms, s.Input.Language, now)};
    }
    return known.Text;
}

template <NameForm Form>
std::u16string Month(const Sources& s) {
    return s.Forms.MonthName(s.Input.Language, s.Now.LocalTime().Month, Form);
}

template <NameForm Form>
std::u16string Weekday(const Sources& s) {
    return s.Forms.WeekdayName(s.Input.Language, s.Now.LocalTime().DayOfWeek, Form);
}

template <std::uint16_t SystemTime::*Field>
std::u16string Number(const Sources& s) {
    return ToDecimal(s.Now.LocalTime().*Field);
}

template <std::uint16_t SystemTime::*Field>
std::u16string TwoDigits(const Sources& s) {
    const std::u16string number = Number<Field>(s);
    return number.size() < 2 ? u"0" + number : number;
}

std::u16string Year2(const Sources& s) {
    const std::u16string year = Number<&SystemTime::Year>(s);
    return year.size() > 2 ? year.substr(year.size() - 2) : year;
}

// The packing of a mouse message's LPARAM, as a signed number.
std::u16string MousePosition(const Sources& s) {
    const std::optional<Point> point = s.System.CursorPosition();
    if (!point) {
        return u"ERROR on GetCursorPos";
    }
    const std::uint32_t low = static_cast<std::uint16_t>(point->X);
    const std::uint32_t high = static_cast<std::uint16_t>(point->Y);
    return ToDecimal(static_cast<std::int32_t>(high << 16 | low));
}

template <ProgramFile File>
std::u16string Version(const Sources& s) {
    return s.System.FileVersion(File);
}

std::u16string SelText(const Sources& s) {
    return std::u16string(s.Input.SelText);
}
std::u16string ClipboardText(const Sources& s) {
    return std::u16string(s.Input.ClipboardText);
}
std::u16string Nothing(const Sources&) {
    return {};
}

struct Macro {
    std::u16string_view Token;
    Value Make;
};

constexpr auto kMacros = std::to_array<Macro>({
    {u"%CLIPBOARD_TEXT%", ClipboardText},
    {u"%CURSOR_POS%", Nothing},
    {u"%DATE%", DateForm<DateTimeMode::Date>},
    {u"%DATETIME%", DateForm<DateTimeMode::DateTime>},
    {u"%DATETIME_EX_WD%", DateForm<DateTimeMode::DateTimeWithoutWeekday>},
    {u"%DATE_EX_WD%", DateForm<DateTimeMode::DateWithoutWeekday>},
    {u"%DAY%", Number<&SystemTime::Day>},
    {u"%DAY2%", TwoDigits<&SystemTime::Day>},
    {u"%KEYPRESS_ENTER%", [](const Sources&) { return std::u16string(u"\r"); }},
    {u"%KEYPRESS_TAB%", [](const Sources&) { return std::u16string(u"\t"); }},
    {u"%LOWER_SELTEXT%", [](const Sources& s) { return s.Forms.Lower(s.Input.SelText); }},
    {u"%MONTHNAME%", Month<NameForm::Full>},
    {u"%MONTHNAME_ABBR%", Month<NameForm::Short>},
    {u"%MONTHNUMBER%", Number<&SystemTime::Month>},
    {u"%MONTHNUMBER2%", TwoDigits<&SystemTime::Month>},
    {u"%MOUSEPOS_ASLARAM%", MousePosition},
    {u"%NUMBERCHARS_CLIPBOARD%",
     [](const Sources& s) { return NumbersInTextToWords(s.Input.ClipboardText); }},
    {u"%NUMBERCHARS_SELTEXT%",
     [](const Sources& s) { return NumbersInTextToWords(s.Input.SelText); }},
    {u"%PROMPT_TEXT={}%", Nothing},
    {u"%SELECTED_TEXT%", SelText},
    {u"%TEXT_AFTER_URL%", [](const Sources& s) { return ExtractUrl(s.Input.SelText, false); }},
    {u"%TIME%", DateForm<DateTimeMode::Time>},
    {u"%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%", Nothing},
    {u"%UPPER_SELTEXT%", [](const Sources& s) { return s.Forms.Upper(s.Input.SelText); }},
    {u"%URL_FROM_CLIPBOARD%",
     [](const Sources& s) { return ExtractUrl(s.Input.ClipboardText, true); }},
    {u"%URL_FROM_SELECTED_TEXT%",
     [](const Sources& s) { return ExtractUrl(s.Input.SelText, true); }},
    {u"%VBR_VERSION%", Version<ProgramFile::Main>},
    {u"%VBR_VERSION_DLL%", Version<ProgramFile::HookLibrary>},
    {u"%VBR_VERSION_EDITOR%", Version<ProgramFile::Editor>},
    {u"%WEEKDAYNAME%", Weekday<NameForm::Full>},
    {u"%WEEKDAYNAME_ABBR%", Weekday<NameForm::Short>},
    {u"%WINDOWS_USERNAME%", [](const Sources& s) { return s.System.UserName(); }},
    {u"%WINDOWS_VERSION%", [](const Sources& s) { return s.System.SystemDescription(); }},
    {u"%WINSYSDIR%",
     [](const Sources& s) {
         return s.System.SystemDirectory().value_or(u"ERROR on GetSystemDirectory");
     }},
    {u"%YEAR%", Number<&SystemTime::Year>},
    {u"%YEAR2%", Year2},
});

constexpr bool TokenBefore(const Macro& a, const Macro& b) {
    return a.Token < b.Token;
}
static_assert(std::is_sorted(kMacros.begin(), kMacros.end(), TokenBefore));

constexpr auto kTokens = [] {
    std::array<std::u16string_view, kMacros.size()> tokens;
    std::transform(kMacros.begin(), kMacros.end(), tokens.begin(),
                   [](const Macro& macro) { return macro.Token; });
    return tokens;
}();

}  // namespace

std::u16string MacroValues::MacroValue(std::u16string_view macro, const MacroInput& input) const {
    static const auto makers = [] {
        std::unordered_map<std::u16string_view, Value> byToken;
        for (const Macro& known : kMacros) {
            byToken.emplace(known.Token, known.Make);
        }
        return byToken;
    }();
    const auto found = makers.find(macro);
    return found == makers.end() ? std::u16string()
                                 : found->second({clock_, locale_, system_, input, dates_});
}

std::span<const std::u16string_view> MacroValues::FixedTokens() {
    return kTokens;
}

}  // namespace vbr

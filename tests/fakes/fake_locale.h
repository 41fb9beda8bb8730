// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "platform/keyboard_layouts.h"
#include "platform/locale.h"

namespace vbr {

inline constexpr Lcid kEnglish = 0x0409;
inline constexpr Lcid kBritish = 0x0809;
inline constexpr Lcid kRussian = 0x0419;

// English and Russian, where every day is a Wednesday.
class FakeLocale : public Locale {
  public:
    Lcid UserDefault() const override { return kEnglish; }
    Lcid ThreadLocale() const override { return kBritish; }
    std::u16string LongDate(Lcid lcid, const SystemTime& t) const override {
        const std::u16string weekday = WeekdayName(lcid, t.DayOfWeek, NameForm::Full);
        return Concat(weekday, u", ", MonthName(lcid, t.Month, NameForm::Full), u" ", t.Day, u", ",
                      t.Year);
    }
    std::u16string Time24(Lcid, const SystemTime& t) const override {
        return Concat(t.Hour, u":", t.Minute, u":", t.Second);
    }
    std::u16string WeekdayName(Lcid lcid, int, NameForm form) const override {
        return InForm(lcid == kRussian ? u"среда" : u"Wednesday", form);
    }
    std::u16string MonthName(Lcid, int month, NameForm form) const override {
        return InForm(month == 3 ? u"March" : u"Another", form);
    }
    std::u16string Iso639Name(Lcid lcid) const override { return lcid == kRussian ? u"ru" : u"en"; }
    std::u16string LanguageName(Lcid lcid) const override {
        return lcid == kRussian ? u"Русский" : lcid == kBritish ? u"British" : u"English";
    }
    std::u16string LanguageAbbreviation(Lcid lcid) const override {
        return lcid == kRussian ? u"Rus" : lcid == kBritish ? u"Bri" : u"Eng";
    }
    std::u16string Upper(std::u16string_view text) const override { return ToUpper(text); }
    std::u16string Lower(std::u16string_view text) const override {
        std::u16string lower(text);
        for (char16_t& unit : lower) {
            const bool isUpper = (unit >= u'A' && unit <= u'Z') || (unit >= u'А' && unit <= u'Я');
            unit = static_cast<char16_t>(unit + (isUpper ? 32 : 0));
        }
        return lower;
    }

  private:
    static std::u16string InForm(std::u16string_view name, NameForm form) {
        return std::u16string(form == NameForm::Short ? name.substr(0, 3) : name);
    }
};

class FakeKeyboardLayouts : public KeyboardLayouts {
  public:
    std::vector<Lcid> Languages = {kEnglish, kRussian, kBritish};
    Lcid DefaultLanguage = kEnglish;
    LayoutToggleSetting Toggle{true, u"1"};
    std::vector<Lcid> InstalledLanguages() const override { return Languages; }
    Lcid DefaultInputLanguage() const override { return DefaultLanguage; }
    LayoutToggleSetting ToggleSetting() const override { return Toggle; }
};

}  // namespace vbr

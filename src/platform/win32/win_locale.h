// SPDX-License-Identifier: MIT
#pragma once

#include "platform/locale.h"

namespace vbr {

class WinLocale : public Locale {
  public:
    Lcid UserDefault() const override;
    Lcid ThreadLocale() const override;
    std::u16string LongDate(Lcid lcid, const SystemTime& time) const override;
    std::u16string Time24(Lcid lcid, const SystemTime& time) const override;
    std::u16string WeekdayName(Lcid lcid, int dayOfWeek, NameForm form) const override;
    std::u16string MonthName(Lcid lcid, int month, NameForm form) const override;
    std::u16string Iso639Name(Lcid lcid) const override;
    std::u16string LanguageName(Lcid lcid) const override;
    std::u16string LanguageAbbreviation(Lcid lcid) const override;
    std::u16string Upper(std::u16string_view text) const override;
    std::u16string Lower(std::u16string_view text) const override;
};

}  // namespace vbr

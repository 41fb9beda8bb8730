// SPDX-License-Identifier: MIT
#include "platform/win32/win_locale.h"

#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "base/text.h"
#include "platform/date_forms.h"

namespace vbr {
namespace {

using testing::Not;

MATCHER_P(Holds, part, "") {
    *result_listener << Utf16ToUtf8(arg);
    return arg.find(part) != arg.npos;
}

constexpr Lcid kEnglish = 0x0409;
constexpr Lcid kRussian = 0x0419;
constexpr Lcid kGerman = 0x0407;
constexpr Lcid kJapanese = 0x0411;

// A Monday.
constexpr SystemTime kTime{2024, 5, 1, 6, 14, 5, 9, 0};

class WinLocaleTest : public testing::TestWithParam<Lcid> {
  protected:
    std::u16string Format(DateTimeMode mode, Lcid lcid) const {
        return FormatDateTime(mode, locale_, lcid, kTime);
    }

    WinLocale locale_;
};

TEST_P(WinLocaleTest, ADateWithoutItsWeekdayIsStillWhole) {
    const std::u16string date = Format(DateTimeMode::DateWithoutWeekday, GetParam());
    EXPECT_THAT(date, Holds(u"2024"));
    EXPECT_THAT(date, Holds(u"6"));
    for (int day = 0; day < 7; ++day) {
        const std::u16string name = locale_.WeekdayName(GetParam(), day, NameForm::Full);
        ASSERT_NE(name, u"");
        EXPECT_THAT(date, Not(Holds(name)));
    }
    EXPECT_EQ(date, Trim(date, u" ,"));
}

INSTANTIATE_TEST_SUITE_P(Languages, WinLocaleTest,
                         testing::Values(kEnglish, kRussian, kGerman, kJapanese));

TEST_F(WinLocaleTest, DatesAndNamesAreThoseOfTheLanguage) {
    EXPECT_EQ(Format(DateTimeMode::Date, kEnglish), u"Monday, May 6, 2024");
    EXPECT_EQ(Format(DateTimeMode::DateWithoutWeekday, kEnglish), u"May 6, 2024");
    EXPECT_EQ(Format(DateTimeMode::DateWithoutWeekday, kGerman), u"6. Mai 2024");
    EXPECT_THAT(Format(DateTimeMode::Date, kRussian), Holds(u"6 мая 2024"));
    EXPECT_EQ(locale_.WeekdayName(kEnglish, 0, NameForm::Full), u"Sunday");
    EXPECT_EQ(locale_.WeekdayName(kEnglish, 6, NameForm::Short), u"Sat");
    EXPECT_EQ(locale_.WeekdayName(kGerman, 1, NameForm::Full), u"Montag");
    EXPECT_EQ(locale_.MonthName(kEnglish, 1, NameForm::Short), u"Jan");
    EXPECT_EQ(locale_.MonthName(kGerman, 12, NameForm::Full), u"Dezember");
    EXPECT_EQ(locale_.Iso639Name(kRussian), u"ru");
    EXPECT_EQ(locale_.Iso639Name(kJapanese), u"ja");
    EXPECT_EQ(locale_.LanguageAbbreviation(kEnglish), u"ENU");
    EXPECT_EQ(locale_.LanguageAbbreviation(kGerman), u"DEU");
    EXPECT_NE(locale_.LanguageName(kEnglish), u"");
    EXPECT_NE(locale_.LanguageName(kEnglish), locale_.LanguageName(kGerman));
}

TEST_F(WinLocaleTest, CyrillicChangesItsCase) {
    EXPECT_EQ(locale_.Upper(u"Съешь ещё, ёж 1 😀"), u"СЪЕШЬ ЕЩЁ, ЁЖ 1 😀");
    EXPECT_EQ(locale_.Lower(u"СЪЕШЬ Ещё, ЁЖ 1 😀"), u"съешь ещё, ёж 1 😀");
    EXPECT_EQ(locale_.Upper(u""), u"");
}

TEST_F(WinLocaleTest, CaseWithoutALocaleAgreesWithWindows) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto c = static_cast<char16_t>(unit);
        if (UpperChar(c) != c) {
            EXPECT_EQ(locale_.Upper({&c, 1}), std::u16string(1, UpperChar(c))) << std::hex << unit;
        }
    }
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "macros/number_words.h"

#include <array>

#include "base/text.h"

namespace vbr {
namespace {

using Words = std::u16string_view;

constexpr std::array<Words, 10> kHundreds = {u"",           u" сто",  u" двести", u" триста",
                                             u" четыреста", u" пят",  u" шест",   u" сем",
                                             u" восем",     u" девят"};
constexpr std::array<Words, 10> kTens = {u"",       u"",          u" двадцать", u" тридцать",
                                         u" сорок", u" пят",      u" шест",     u" сем",
                                         u" восем", u" девяносто"};
constexpr std::array<Words, 20> kUnits = {u"",        u" один",  u" два",  u" три",    u" четыре",
                                          u" пять",   u" шесть", u" семь", u" восемь", u" девять",
                                          u" десять", u" один",  u" две",  u" три",    u" четыр",
                                          u" пят",    u" шест",  u" сем",  u" восем",  u" девят"};
constexpr std::array<Words, 3> kFeminine = {u"", u" одна", u" две"};
constexpr std::array<Words, 4> kScale = {u"", u" тысяч", u" миллион", u" миллиард"};
constexpr std::array<Words, 3> kThousandEnding = {u"а", u"и", u""};
constexpr std::array<Words, 3> kScaleEnding = {u"", u"а", u"ов"};

std::size_t PluralClass(std::uint64_t rest) {
    if (rest >= 5 && rest <= 19) {
        return 2;
    }
    const std::uint64_t last = rest % 10;
    if (last == 1) {
        return 0;
    }
    return last >= 2 && last <= 4 ? 1 : 2;
}

// Adds a number's words, each with its blank in front; `group` 1 is the thousands.
void AddWords(std::u16string& out, std::uint64_t number, std::size_t group) {
    if (number >= 1000) {
        AddWords(out, number / 1000, group + 1);
    }
    const std::uint64_t value = number % 1000;
    if (value == 0) {
        return;
    }
    const std::uint64_t hundreds = value / 100;
    out += kHundreds[hundreds];
    out += hundreds >= 5 ? u"ьсот" : u"";
    std::uint64_t rest = value % 100;
    if (const std::uint64_t tens = rest / 10; tens >= 2) {
        out += kTens[tens];
        out += tens >= 5 && tens <= 8 ? u"ьдесят" : u"";
        rest %= 10;
    }
    const std::size_t plural = PluralClass(rest);
    out += group == 1 && (rest == 1 || rest == 2) ? kFeminine[rest] : kUnits[rest];
    out += rest > 10 ? u"надцать" : u"";
    if (group > 0) {
        out += kScale[group];
        out += group == 1 ? kThousandEnding[plural] : kScaleEnding[plural];
    }
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

}  // namespace

std::u16string NumberToWords(std::uint64_t number) {
    if (number == 0) {
        return u"ноль";
    }
    std::u16string out;
    AddWords(out, number, 0);
    return std::u16string(Trim(out, u" "));
}

std::u16string NumbersInTextToWords(std::u16string_view text) {
    std::u16string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const bool digits = IsDigit(text[at]);
        while (at < text.size() && IsDigit(text[at]) == digits) {
            ++at;
        }
        const std::u16string_view run = text.substr(start, at - start);
        const std::uint64_t number =
            digits ? static_cast<std::uint64_t>(ParseDecimal(run)) : kNumberWordsMax + 1;
        if (number <= kNumberWordsMax) {
            out += NumberToWords(number);
        } else {
            out += run;
        }
    }
    return out;
}

}  // namespace vbr

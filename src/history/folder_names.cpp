// SPDX-License-Identifier: MIT
#include "history/folder_names.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kDigits = u"0123456789";
constexpr std::size_t kMostDigits = 9;

struct NumberedName {
    std::u16string_view Stem;
    std::uint32_t Number = 0;  // 0 when there is none
    std::u16string_view Extension;
};

NumberedName Split(std::u16string_view name) {
    const std::size_t point = std::min(name.rfind(u'.'), name.size());
    const std::u16string_view base = name.substr(0, point);
    const std::u16string_view stem = TrimRight(base, kDigits);
    const std::u16string_view digits = base.substr(stem.size());
    const bool isNumber = !digits.empty() && digits.size() <= kMostDigits && digits.front() != u'0';
    return {stem, isNumber ? static_cast<std::uint32_t>(ParseDecimal(digits)) : 0,
            name.substr(point)};
}

std::u16string KindOf(std::u16string_view stem, std::u16string_view extension) {
    return ToUpper(Concat(stem, extension));
}

}  // namespace

void FolderNames::Take(std::u16string_view name) {
    if (const NumberedName split = Split(name); split.Number != 0) {
        kinds_[KindOf(split.Stem, split.Extension)].Taken.insert(split.Number);
    }
}

void FolderNames::Release(std::u16string_view name) {
    if (const NumberedName split = Split(name); split.Number != 0) {
        Numbers& numbers = kinds_[KindOf(split.Stem, split.Extension)];
        numbers.Taken.erase(split.Number);
        numbers.LowestFree = std::min(numbers.LowestFree, split.Number);
    }
}

std::u16string FolderNames::TakeFree(std::u16string_view stem, std::u16string_view extension) {
    Numbers& numbers = kinds_[KindOf(stem, extension)];
    while (!numbers.Taken.insert(numbers.LowestFree).second) {
        ++numbers.LowestFree;
    }
    return Concat(stem, numbers.LowestFree++, extension);
}

bool IsNumberedName(std::u16string_view name, std::u16string_view stem,
                    std::u16string_view extension) {
    const NumberedName split = Split(name);
    return split.Number != 0 && EqualsNoCase(split.Stem, stem) &&
           EqualsNoCase(split.Extension, extension);
}

}  // namespace vbr

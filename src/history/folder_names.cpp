// SPDX-License-Identifier: MIT
#include "history/folder_names.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kDigits = u"0123456789";
constexpr std::size_t kMostDigits = 6;

struct NumberedName {
    std::u16string_view Stem;
    std::size_t Number = 0;  // 0 when there is none
    std::u16string_view Extension;
};

NumberedName Split(std::u16string_view name) {
    const std::size_t point = std::min(name.rfind(u'.'), name.size());
    const std::u16string_view base = name.substr(0, point);
    const std::u16string_view stem = TrimRight(base, kDigits);
    const std::u16string_view digits = base.substr(stem.size());
    const bool isNumber = !digits.empty() && digits.size() <= kMostDigits && digits.front() != u'0';
    return {stem, isNumber ? static_cast<std::size_t>(ParseDecimal(digits)) : 0,
            name.substr(point)};
}

}  // namespace

FolderNames::Kind& FolderNames::KindOf(std::u16string_view stem, std::u16string_view extension) {
    const auto known = std::find_if(kinds_.begin(), kinds_.end(), [&](const Kind& kind) {
        return (kind.Stem == stem && kind.Extension == extension) ||
               (EqualsNoCase(kind.Stem, stem) && EqualsNoCase(kind.Extension, extension));
    });
    return known != kinds_.end() ? *known
                                 : kinds_.emplace_back(Kind{.Stem = std::u16string(stem),
                                                            .Extension = std::u16string(extension),
                                                            .Taken = {},
                                                            .LowestFree = 1});
}

void FolderNames::Take(std::u16string_view name) {
    const NumberedName split = Split(name);
    if (split.Number != 0) {
        Kind& kind = KindOf(split.Stem, split.Extension);
        kind.Taken.resize(std::max(kind.Taken.size(), split.Number + 1));
        kind.Taken[split.Number] = true;
    }
}

void FolderNames::Release(std::u16string_view name) {
    const NumberedName split = Split(name);
    Kind& kind = KindOf(split.Stem, split.Extension);
    if (split.Number != 0 && split.Number < kind.Taken.size()) {
        kind.Taken[split.Number] = false;
        kind.LowestFree = std::min(kind.LowestFree, split.Number);
    }
}

std::u16string FolderNames::TakeFree(std::u16string_view stem, std::u16string_view extension) {
    Kind& kind = KindOf(stem, extension);
    while (kind.LowestFree < kind.Taken.size() && kind.Taken[kind.LowestFree]) {
        ++kind.LowestFree;
    }
    kind.Taken.resize(std::max(kind.Taken.size(), kind.LowestFree + 1));
    kind.Taken[kind.LowestFree] = true;
    return Concat(stem, kind.LowestFree++, extension);
}

bool IsNumberedName(std::u16string_view name, std::u16string_view stem,
                    std::u16string_view extension) {
    const NumberedName split = Split(name);
    return split.Number != 0 && EqualsNoCase(split.Stem, stem) &&
           EqualsNoCase(split.Extension, extension);
}

}  // namespace vbr

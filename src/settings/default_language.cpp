// SPDX-License-Identifier: MIT
#include "settings/default_language.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kTemplateName = u"LocalizeExample.lng";
constexpr std::size_t kPrefixLetters = 2;
constexpr std::size_t kPrefixMax = 10;

}  // namespace

std::vector<std::u16string> LanguageFileNames(const std::filesystem::path& programFolder) {
    namespace fs = std::filesystem;
    std::vector<std::u16string> names;
    std::error_code error;
    for (fs::directory_iterator entry(programFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::u16string name = entry->path().filename().u16string();
        std::error_code unreadable;
        if (EndsWithNoCase(name, u".lng") && !EqualsNoCase(name, kTemplateName) &&
            entry->is_regular_file(unreadable)) {
            names.push_back(std::move(name));
        }
    }
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) {
        return std::pair(ToUpper(a), a) < std::pair(ToUpper(b), b);
    });
    return names;
}

std::u16string ChooseDefaultLanguage(const ProfileStore& profile,
                                     const std::filesystem::path& programFolder,
                                     std::u16string_view iso639Name) {
    const std::u16string_view wanted = CutUnits(iso639Name, kPrefixLetters);
    if (wanted.empty()) {
        return {};
    }
    for (const std::u16string& name : LanguageFileNames(programFolder)) {
        const auto prefix = profile.ReadString(programFolder / name, u"Main", u"LangPrefix");
        if (prefix && EqualsNoCase(TrimRight(CutUnits(*prefix, kPrefixMax), u" "), wanted)) {
            return name;
        }
    }
    return {};
}

}  // namespace vbr

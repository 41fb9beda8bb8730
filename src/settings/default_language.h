// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_store.h"

namespace vbr {

// The names of the language files in the program folder, sorted without case. The template for
// translators is not among them.
std::vector<std::u16string> LanguageFileNames(const std::filesystem::path& programFolder);

// The first language file for the language ("en"), by its LangPrefix without case; empty when none
// is for it.
std::u16string ChooseDefaultLanguage(const ProfileStore& profile,
                                     const std::filesystem::path& programFolder,
                                     std::u16string_view iso639Name);

}  // namespace vbr

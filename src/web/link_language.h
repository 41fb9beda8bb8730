// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/log.h"
#include "platform/profile_store.h"

namespace vbr {

// Whether readers of the language, told by its two letters, get the Russian addresses.
bool IsRussianLinkLanguage(std::u16string_view prefix);

// Chooses the form of the web addresses by the prefix that the language file names. A file without
// one gives the English addresses.
void SetUseRuUrls(const ProfileStore& profile, std::u16string_view languageFile, Log& log);

}  // namespace vbr

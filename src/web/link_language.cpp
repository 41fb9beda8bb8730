// SPDX-License-Identifier: MIT
#include "web/link_language.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/text.h"
#include "web/vbr_url.h"

namespace vbr {
namespace {

constexpr std::size_t kPrefixMax = 10;

// The neighbours of Russian, whose readers are served by the Russian pages too.
constexpr std::u16string_view kRussianLinkLanguages[] = {u"ru", u"uk", u"be", u"kz",
                                                         u"lv", u"lt", u"et"};

}  // namespace

bool IsRussianLinkLanguage(std::u16string_view prefix) {
    return std::any_of(std::begin(kRussianLinkLanguages), std::end(kRussianLinkLanguages),
                       [prefix](auto language) { return EqualsNoCase(prefix, language); });
}

void SetUseRuUrls(const ProfileStore& profile, std::u16string_view languageFile, Log& log) {
    const std::u16string value =
        profile.ReadString(languageFile, u"Main", u"LangPrefix").value_or(std::u16string());
    const std::u16string_view prefix = TrimRight(CutUnits(value, kPrefixMax), u" ");
    log.Write(Concat(u"Read prefix from ", languageFile, u" prefix=", prefix));
    const bool russian = IsRussianLinkLanguage(prefix);
    log.Write(Concat(u"CAppObjects::SetUseRuUrls, lng=[", languageFile, u"], bRu=", int{russian}));
    CVBRUrl::_Set_Use_RU_Urls(russian, log);
}

}  // namespace vbr

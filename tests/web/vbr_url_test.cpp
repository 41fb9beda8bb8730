// SPDX-License-Identifier: MIT
#include "web/vbr_url.h"

#include <gtest/gtest.h>

#include "base/version.h"
#include "fakes/memory_log.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "web/link_language.h"

namespace vbr {
namespace {

class VBRUrl : public testing::Test {
  protected:
    ~VBRUrl() override { CVBRUrl::_Set_Use_RU_Urls(false, log_); }

    MemoryLog log_;
};

TEST_F(VBRUrl, TheLanguageFilesPrefixChoosesTheForm) {
    const std::pair<std::string, bool> cases[] = {
        {"LangPrefix=En", false},
        {"LangPrefix=ru", true},
        {"LangPrefix=Et", true},
        {"LangPrefix=\"ru        \"", true},
        {"LangPrefix=\" ru\"", false},
        {"LangPrefix=rus", false},
        {"LangPrefix=ru        x", true},  // behind the tenth character
        {"", false},
    };
    const TempFolder folder;
    const NativeProfileStore profile;
    for (const auto& [line, russian] : cases) {
        folder.Write("My.lng", "[Main]\r\n" + line + "\r\n");
        SetUseRuUrls(profile, (folder.Path() / "My.lng").u16string(), log_);
        EXPECT_EQ(CVBRUrl::GetNewsUrl().ends_with(u"/Rus/news_ru.xml"), russian) << line;
        EXPECT_EQ(CVBRUrl::GetNewsUrl().ends_with(u"/news_en.xml"), !russian) << line;
    }
}

TEST_F(VBRUrl, TheQuickStartPageIsToldTheVersionWithoutBlanks) {
    std::u16string version = VersionText();
    ASSERT_GT(ReplaceAll(version, u" ", u"_"), 0U);
    EXPECT_TRUE(CVBRUrl::GetQuickStartUrl().ends_with(
        Concat(u"/home_vbr_qs.php?ver=", version, u"&from_app=Vellumbridge")));
}

}  // namespace
}  // namespace vbr

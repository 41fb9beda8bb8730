// SPDX-License-Identifier: MIT
#include "web/vbr_url.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>
#include <vector>

#include "base/version.h"
#include "fakes/memory_log.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "web/link_language.h"

namespace vbr {
namespace {

using testing::ElementsAre;

class RecordingShell : public ShellOpener {
  public:
    std::vector<std::tuple<WindowHandle, std::u16string, ShowState>> Opened;

    std::intptr_t Open(WindowHandle owner, std::u16string_view target, ShowState show) override {
        Opened.emplace_back(owner, target, show);
        return 31;
    }
};

class VBRUrl : public testing::Test {
  protected:
    ~VBRUrl() override { CVBRUrl::_Set_Use_RU_Urls(false, log_); }

    MemoryLog log_;
};

TEST_F(VBRUrl, TheLanguageFilesPrefixChoosesTheForm) {
    const std::pair<std::string, bool> cases[] = {
        {"LangPrefix=En", false},
        {"LangPrefix=ru", true},
        {"LangPrefix=RU", true},
        {"LangPrefix=Et", true},
        {"LangPrefix=\"ru        \"", true},
        {"LangPrefix=\" ru\"", false},
        {"LangPrefix=rus", false},
        {"LangPrefix=r", false},
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

TEST_F(VBRUrl, TheLocalizePageIsEnglishInBothForms) {
    const std::u16string english = CVBRUrl::GetLocalizeUrl();
    CVBRUrl::_Set_Use_RU_Urls(true, log_);
    EXPECT_EQ(CVBRUrl::GetLocalizeUrl(), english + u"_ru");
}

TEST_F(VBRUrl, TheQuickStartPageIsToldTheVersionWithoutBlanks) {
    std::u16string version = VersionText();
    ASSERT_GT(ReplaceAll(version, u" ", u"_"), 0U);
    EXPECT_TRUE(CVBRUrl::GetQuickStartUrl().ends_with(
        Concat(u"/home_vbr_qs.php?ver=", version, u"&from_app=Vellumbridge")));
}

TEST_F(VBRUrl, PagesAndMailOpenMaximisedOverTheirWindow) {
    RecordingShell shell;
    EXPECT_EQ(OpenUrl(shell, 66, u"http://a.example/b"), 31);
    SendMail(shell, 67);
    const std::u16string mail = u"mailto:support@vellumbridge.example?subject=Vellumbridge";
    EXPECT_THAT(shell.Opened,
                ElementsAre(std::tuple(66U, u"http://a.example/b", ShowState::Maximized),
                            std::tuple(67U, mail, ShowState::Maximized)));
}

}  // namespace
}  // namespace vbr

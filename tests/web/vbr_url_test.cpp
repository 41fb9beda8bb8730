// SPDX-License-Identifier: MIT
#include "web/vbr_url.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>
#include <vector>

#include "base/version.h"
#include "fakes/memory_log.h"
#include "web/link_language.h"

namespace vbr {
namespace {

using testing::ElementsAre;

// A language file with one prefix or none.
class LanguageFile : public ProfileStore {
  public:
    std::optional<std::u16string> Prefix;

    std::optional<std::u16string> ReadString(const std::filesystem::path& file,
                                             std::u16string_view section,
                                             std::u16string_view key) const override {
        const bool known = file == u"My.lng" && section == u"Main" && key == u"LangPrefix";
        return known ? Prefix : std::nullopt;
    }
    bool WriteString(const std::filesystem::path&, std::u16string_view, std::u16string_view,
                     std::u16string_view) override {
        return false;
    }
};

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
    const struct {
        std::optional<std::u16string> Prefix;
        bool Russian;
    } kCases[] = {
        {u"En", false},         {u"ru", true},   {u"RU", true},   {u"Et", true},
        {u"ru        ", true},  {u" ru", false}, {u"rus", false}, {u"r", false},
        {u"ru        x", true},  // behind the tenth character
        {std::nullopt, false},
    };
    LanguageFile file;
    for (const auto& [prefix, russian] : kCases) {
        SCOPED_TRACE(Utf16ToUtf8(prefix.value_or(u"none")));
        file.Prefix = prefix;
        SetUseRuUrls(file, u"My.lng", log_);
        EXPECT_EQ(CVBRUrl::GetNewsUrl().ends_with(u"/Rus/news_ru.xml"), russian);
        EXPECT_EQ(CVBRUrl::GetNewsUrl().ends_with(u"/news_en.xml"), !russian);
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

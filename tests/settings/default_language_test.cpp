// SPDX-License-Identifier: MIT
#include "settings/default_language.h"

#include <gtest/gtest.h>

#include "fakes/fake_locale.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "settings/system_defaults.h"

namespace vbr {
namespace {

class DefaultLanguage : public testing::Test {
  protected:
    void AddLanguage(const std::string& name, const std::string& prefix) {
        folder_.Write(name, "[Main]\r\nLangPrefix=" + prefix + "\r\n");
    }
    std::u16string Choose(std::u16string_view language) const {
        return ChooseDefaultLanguage(profile_, folder_.Path(), language);
    }

    TempFolder folder_;
    NativeProfileStore profile_;
};

TEST_F(DefaultLanguage, FilesAreSortedWithoutCaseAndTheTemplateIsNoLanguage) {
    for (const char* name : {"beta.lng", "Alpha.LNG", "Zeta.lng", "localizeexample.lng",
                             "Alpha.lng.bak", "folder.lng/inner.txt"}) {
        folder_.Write(name, "");
    }
    EXPECT_EQ(LanguageFileNames(folder_.Path()),
              (std::vector<std::u16string>{u"Alpha.LNG", u"beta.lng", u"Zeta.lng"}));
    EXPECT_TRUE(LanguageFileNames(folder_.Path() / "missing").empty());
}

TEST_F(DefaultLanguage, IsTheFirstFileWithItsTwoLetters) {
    AddLanguage("a_empty.lng", "");
    AddLanguage("b_russian.lng", "RU  ");
    AddLanguage("c_russian.lng", "ru");
    AddLanguage("d_long.lng", "engl");
    AddLanguage("LocalizeExample.lng", "En");
    EXPECT_EQ(Choose(u"ru"), u"b_russian.lng");
    EXPECT_EQ(Choose(u"rus"), u"b_russian.lng");
    EXPECT_EQ(Choose(u"en"), u"");
    EXPECT_EQ(Choose(u""), u"");
}

TEST_F(DefaultLanguage, AndTheLayoutCommandFollowTheKeyboardLayouts) {
    AddLanguage("russian.lng", "Ru");
    const auto ask = [this](std::vector<Lcid> languages) {
        FakeKeyboardLayouts layouts;
        layouts.Languages = languages;
        layouts.DefaultLanguage = languages.back();
        return ReadSystemDefaults(layouts, FakeLocale(), profile_, folder_.Path(), {}, {});
    };
    EXPECT_EQ(ask({kEnglish, kRussian}).Language, u"russian.lng");
    EXPECT_TRUE(ask({kEnglish, kRussian}).SeveralKeyboardLayouts);
    EXPECT_EQ(ask({kEnglish}).Language, u"");
    EXPECT_FALSE(ask({kEnglish}).SeveralKeyboardLayouts);
}

}  // namespace
}  // namespace vbr

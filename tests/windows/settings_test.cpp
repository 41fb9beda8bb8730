// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "platform/win32/windows.h"

#include <cstring>
#include <gtest/gtest.h>

#include "fakes/profile_cases.h"
#include "platform/win32/win_menu_font.h"
#include "platform/win32/win_profile_store.h"

namespace vbr {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ProfileStoreTest, WinProfileStore);

class WinSettingsTest : public testing::Test {
  protected:
    CVBRSettings Make(const FontBytes& menuFont) {
        SystemDefaults system;
        system.MenuFont = menuFont;
        return {profile_, {file_, file_, file_, u"C:\\App\\", u"Test.exe"}, system};
    }

    TempFolder folder_;
    std::filesystem::path file_ = folder_.Path() / "Settings.ini";
    WinProfileStore profile_;
};

TEST_F(WinSettingsTest, StructValuesAreThoseOfTheSystem) {
    std::array<std::uint8_t, 5> bytes = {1, 0xAB, 0xFF, 0, 0x7C};
    std::array<std::uint8_t, 5> read{};
    EXPECT_TRUE(profile_.WriteStruct(file_, u"S", u"Ours", bytes));
    EXPECT_TRUE(GetPrivateProfileStructW(L"S", L"Ours", read.data(), 5, file_.c_str()));
    EXPECT_EQ(read, bytes);
    read = {};
    EXPECT_TRUE(WritePrivateProfileStructW(L"S", L"Theirs", bytes.data(), 5, file_.c_str()));
    EXPECT_TRUE(profile_.ReadStruct(file_, u"S", u"Theirs", read));
    EXPECT_EQ(read, bytes);
}

TEST_F(WinSettingsTest, ALongValueIsNotCut) {
    const std::u16string value = std::u16string(299, u'ж') + u'!';
    folder_.Write("Settings.ini", Utf16Bytes(u"[Main]\r\nLong=" + value + u"\r\n"));
    EXPECT_EQ(profile_.ReadString(file_, u"Main", u"Long"), value);
}

TEST_F(WinSettingsTest, TheMenuFontOfTheSystemSurvivesAFile) {
    const FontBytes font = SystemMenuFont();
    LOGFONTW parts{};
    std::memcpy(&parts, font.data(), font.size());
    EXPECT_NE(parts.lfHeight, 0);
    EXPECT_NE(parts.lfFaceName[0], L'\0');
    Make(font).Save();
    CVBRSettings settings = Make({});
    settings.Load();
    EXPECT_EQ(settings.FontForMenu, font);
}

}  // namespace
}  // namespace vbr

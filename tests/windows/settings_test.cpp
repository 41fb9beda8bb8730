// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "platform/win32/windows.h"

#include <cstring>
#include <gtest/gtest.h>

#include "fakes/profile_cases.h"
#include "platform/win32/handle.h"
#include "platform/win32/win_file_access.h"
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
    EXPECT_TRUE(DecodeProfileStruct(profile_.Read(file_, u"S", u"Theirs").Text, read));
    EXPECT_EQ(read, bytes);
}

TEST_F(WinSettingsTest, ALongValueIsNotCut) {
    const std::u16string value = std::u16string(299, u'ж') + u'!';
    folder_.Write("Settings.ini", Utf16Bytes(u"[Main]\r\nLong=" + value + u"\r\n"));
    EXPECT_EQ(profile_.ReadString(file_, u"Main", u"Long"), value);
}

// As programs do that save or scan files.
UniqueHandle Open(const std::filesystem::path& file, DWORD share) {
    return UniqueHandle(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Wine lets everybody read locked bytes.
bool CanReadBytes(const std::filesystem::path& file) {
    const UniqueHandle handle(CreateFileW(file.c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    char byte = 0;
    DWORD read = 0;
    return IsValid(handle) && ReadFile(handle.get(), &byte, 1, &read, nullptr);
}

TEST_F(WinSettingsTest, AFileThatAnotherProgramHoldsIsLeftAloneAndReadWhenItIsFree) {
    const std::string content = "; mine\r\n[Settings]\r\nClipboardHistoryMax=7\r\n";
    const std::string files[] = {content, "\xEF\xBB\xBF" + content,
                                 Utf16Bytes(Utf8ToUtf16(content))};
    for (const std::string& before : files) {
        for (const bool byLock : {false, true}) {
            folder_.Write("Settings.ini", before);
            UniqueHandle holder =
                Open(file_, byLock ? FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE : 0);
            ASSERT_TRUE(IsValid(holder));
            if (byLock) {
                ASSERT_TRUE(LockFile(holder.get(), 0, 0, 10'000, 0));
            }
            const bool canRead = CanReadBytes(file_);
            EXPECT_TRUE(byLock || !canRead);
            CVBRSettings settings = Make({});
            EXPECT_EQ(settings.Load(), canRead);
            if (!canRead) {
                EXPECT_FALSE(settings.Save());
                EXPECT_FALSE(settings.SetInt(u"Key", 1));
                EXPECT_FALSE(settings.IsNewVersion());
                EXPECT_EQ(settings.GetDelayInsertMilliseconds(), 400u);
            }
            // Else the program would choose another file for its settings.
            EXPECT_TRUE(WinFileAccess().CanWrite(file_.u16string()));
            holder.reset();
            EXPECT_EQ(folder_.Read("Settings.ini"), before);
            EXPECT_TRUE(settings.Load());
            EXPECT_EQ(settings.ClipboardHistoryMax, 7u);
            EXPECT_TRUE(settings.Save());
            EXPECT_EQ(profile_.ReadString(file_, u"Settings", u"ClipboardHistoryMax"), u"7");
        }
    }
}

TEST_F(WinSettingsTest, AnEmptyFileThatAnotherProgramHoldsGetsNoMark) {
    folder_.Write("Settings.ini", "");
    UniqueHandle holder = Open(file_, 0);
    EXPECT_FALSE(profile_.WriteString(file_, u"S", u"Key", u"ж"));
    EXPECT_EQ(profile_.Read(file_, u"S", u"Key").Result, ProfileRead::Failed);
    holder.reset();
    EXPECT_EQ(folder_.Read("Settings.ini"), "");
    EXPECT_TRUE(profile_.WriteString(file_, u"S", u"Key", u"ж"));
    EXPECT_EQ(profile_.Read(file_, u"S", u"Key").Text, u"ж");
}

TEST_F(WinSettingsTest, TheMenuFontOfTheSystemSurvivesAFile) {
    const FontBytes font = SystemMenuFont();
    LOGFONTW parts{};
    std::memcpy(&parts, font.data(), font.size());
    EXPECT_NE(parts.lfHeight, 0);
    EXPECT_NE(parts.lfFaceName[0], L'\0');
    CVBRSettings saved = Make(font);
    EXPECT_TRUE(saved.Load() && saved.Save());
    CVBRSettings settings = Make({});
    settings.Load();
    EXPECT_EQ(settings.FontForMenu, font);
}

}  // namespace
}  // namespace vbr

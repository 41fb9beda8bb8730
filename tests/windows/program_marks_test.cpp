// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/win32/temp_path.h"
#include "platform/win32/win_autostart.h"
#include "platform/win32/win_setup_mark.h"

namespace vbr {
namespace {

constexpr const wchar_t* kSetupKey = L"Software\\Nimbletree\\Vellumbridge";
constexpr const wchar_t* kRunKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";

void SetText(const wchar_t* key, const wchar_t* name, const std::wstring& text) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

TEST(SetupMark, CountsOnlyWithAText) {
    const WinSetupMark mark;
    EXPECT_FALSE(mark.IsInstalledBySetup());
    SetText(kSetupKey, L"FromInstaller", L"");
    EXPECT_FALSE(mark.IsInstalledBySetup());
    SetText(kSetupKey, L"FromInstaller", L"yes");
    EXPECT_TRUE(mark.IsInstalledBySetup());
    RegDeleteTreeW(HKEY_CURRENT_USER, kSetupKey);
}

TEST(Autostart, DeleteTakesTheOwnValueOnly) {
    SetText(kRunKey, L"Vellumbridge", L"x");
    SetText(kRunKey, L"Other", L"y");
    WinAutostart().Delete();
    EXPECT_NE(RegGetValueW(HKEY_CURRENT_USER, kRunKey, L"Vellumbridge", RRF_RT_ANY, nullptr,
                           nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(
        RegGetValueW(HKEY_CURRENT_USER, kRunKey, L"Other", RRF_RT_ANY, nullptr, nullptr, nullptr),
        ERROR_SUCCESS);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, L"Other");
}

TEST(TempPath, LiesInTheFolderWithPrefixAndExtension) {
    const TempFolder folder;
    for (const std::u16string_view extension : {u"txt", u".txt"}) {
        const std::filesystem::path path = MakeTempPath(folder.Path(), extension);
        EXPECT_EQ(path.parent_path(), folder.Path());
        // The system takes the first three letters of the prefix "abcd".
        EXPECT_TRUE(path.filename().wstring().starts_with(L"abc")) << path;
        EXPECT_EQ(path.extension(), L".txt");
    }
    EXPECT_EQ(MakeTempPath(folder.Path(), u"").extension(), L".tmp");
    EXPECT_TRUE(MakeTempPath(folder.Path() / "missing", u"txt").empty());
}

}  // namespace
}  // namespace vbr

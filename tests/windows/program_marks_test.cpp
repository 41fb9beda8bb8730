// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/win32/temp_path.h"
#include "platform/win32/win_setup_mark.h"

namespace vbr {
namespace {

constexpr const wchar_t* kSetupKey = L"Software\\Nimbletree\\Vellumbridge";

TEST(SetupMark, CountsOnlyWithAText) {
    EXPECT_FALSE(IsInstalledBySetup());
    for (const std::wstring text : {L"", L"yes"}) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kSetupKey, L"FromInstaller", REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
        EXPECT_EQ(IsInstalledBySetup(), !text.empty());
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, kSetupKey);
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

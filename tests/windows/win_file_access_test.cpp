// SPDX-License-Identifier: MIT
#include "platform/win32/win_file_access.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/temp_folder.h"
#include "windows/access_list.h"

namespace vbr {
namespace {

class WinFileAccessTest : public testing::Test {
  protected:
    std::u16string Path(const char* name) const { return (folder_.Path() / name).u16string(); }

    TempFolder folder_;
    WinFileAccess access_;
};

TEST_F(WinFileAccessTest, AReadOnlyFileIsNotWritable) {
    folder_.Write("Settings.ini", "");
    const std::u16string file = Path("Settings.ini");
    EXPECT_TRUE(access_.CanWrite(file));
    SetFileAttributesW((folder_.Path() / "Settings.ini").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(access_.CanWrite(file));
    SetFileAttributesW((folder_.Path() / "Settings.ini").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_FALSE(access_.CanWrite(Path("missing.ini")));
}

TEST_F(WinFileAccessTest, AFolderWithoutWriteAccessIsNotWritable) {
    std::filesystem::create_directory(folder_.Path() / "locked");
    EXPECT_TRUE(access_.CanWrite(Path("locked")));
    ASSERT_TRUE(SetAccess(folder_.Path() / "locked", L"D:P(A;;FRFX;;;WD)"));
    EXPECT_FALSE(access_.CanWrite(Path("locked")));
}

TEST_F(WinFileAccessTest, AFileItCreatesHasTheRightsOfAnyOtherInTheFolderAndReplacesNone) {
    EXPECT_TRUE(access_.CreateEmptyFile(Path("Settings.ini")));
    folder_.Write("own.ini", "[Main]");
    EXPECT_EQ(AccessListOf(folder_.Path() / "Settings.ini"),
              AccessListOf(folder_.Path() / "own.ini"));
    EXPECT_FALSE(access_.CreateEmptyFile(Path("own.ini")));
    EXPECT_EQ(folder_.Read("own.ini"), "[Main]");
}

TEST_F(WinFileAccessTest, AnEmptyVariableIsNotAMissingOne) {
    const std::wstring text(1000, L'v');
    SetEnvironmentVariableW(L"VELLUMBRIDGE_TEST_LONG", text.c_str());
    SetEnvironmentVariableW(L"VELLUMBRIDGE_TEST_EMPTY", L"");
    EXPECT_EQ(access_.EnvironmentVariable(u"Vellumbridge_Test_Long"), std::u16string(1000, u'v'));
    EXPECT_EQ(access_.EnvironmentVariable(u"VELLUMBRIDGE_TEST_EMPTY"), u"");
    EXPECT_EQ(access_.EnvironmentVariable(u"VELLUMBRIDGE_TEST_MISSING"), std::nullopt);
}

TEST_F(WinFileAccessTest, TheDriveOfAPathIsAskedWhateverLiesBehindIt) {
    EXPECT_EQ(access_.KindOfDrive(u"C:\\"), DriveKind::Fixed);
    EXPECT_EQ(access_.KindOfDrive(u"Q:\\"), DriveKind::NoRoot);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "settings/file_locations.h"

#include "fakes/fake_file_access.h"
#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "fakes/text_cases.h"
#include "shell/temp_files.h"

namespace vbr {
namespace {

constexpr std::u16string_view kModule = u"C:\\App\\Vellumbridge.exe";
const std::u16string kFolder = u"C:\\App\\";
const std::u16string kSettings = u"C:\\App\\Settings.ini";
const std::u16string kLog = u"C:\\App\\LogReport.txt";
const std::u16string kUserSettings = u"C:\\Users\\Ann\\Vellumbridge\\Settings.ini";
const std::u16string kUserLog = u"C:\\Users\\Ann\\Data\\LogReport_Vellumbridge.txt";

TEST(FileLocations, StandBesideTheProgramWhereThatMayBeWritten) {
    using Paths = std::set<std::u16string>;
    const std::tuple<Paths, Paths, std::u16string, std::u16string> cases[] = {
        {{}, {kFolder}, kSettings, kLog},
        {{}, {}, kUserSettings, kUserLog},
        {{kSettings, kLog}, {kSettings, kLog}, kSettings, kLog},
        {{kSettings, kLog}, {kFolder}, kUserSettings, kUserLog},  // read-only
        {{kSettings}, {kSettings}, kSettings, kUserLog}};
    for (const auto& [files, writable, settings, log] : cases) {
        FakeFileAccess access;
        access.Files = files;
        access.Writable = writable;
        const FileLocations where = ChooseFileLocations(kModule, access);
        EXPECT_TRUE(access.FileExists(kSettings) || writable.empty());  // it is made
        EXPECT_EQ(where.SettingsFile, settings);
        EXPECT_EQ(where.LogFile, log);
        EXPECT_EQ(access.MadeFolders.contains(u"C:\\Users\\Ann\\Vellumbridge\\"),
                  settings == kUserSettings);
    }
}

TEST(FileLocations, OnARemovableOrRemoteDriveAllStaysBesideTheProgram) {
    for (const DriveKind drive :
         {DriveKind::Unknown, DriveKind::NoRoot, DriveKind::Removable, DriveKind::Fixed,
          DriveKind::Remote, DriveKind::Optical, DriveKind::RamDisk}) {
        FakeFileAccess access;
        access.Drive = drive;
        const FileLocations where = ChooseFileLocations(kModule, access);
        const bool portable = drive < DriveKind::Fixed || drive == DriveKind::Remote;
        EXPECT_EQ(where.Portable, portable);
        EXPECT_EQ(where.SettingsFile, portable ? kSettings : kUserSettings);
        EXPECT_EQ(where.LogFile, portable ? kLog : kUserLog);
        EXPECT_EQ(access.MadeFolders.empty(), portable);
    }
}

TEST(DriveRoot, IsTheDriveOrTheShare) {
    ExpectTexts({{u"C:\\App\\Vellumbridge.exe", u"C:\\"},
                 {u"\\\\server\\share\\App\\Vellumbridge.exe", u"\\\\server\\share\\"},
                 {u"\\\\server\\share", u"\\\\server\\share\\"}},
                DriveRootOf);
}

TEST(PhrasesFolder, FollowsTheStoredSetting) {
    FakeFileAccess access;
    access.Variables = {{u"USER", u"ann"},
                        {u"HOME", u"C:\\Users\\Ann"},
                        {u"SHARE", u"\\\\server\\share"},
                        {u"LONG", std::u16string(1000, u'x')}};
    FileLocations where;
    where.ProgramFolder = kFolder;
    ExpectTexts(
        {{u"", u"C:\\App\\UserPhrases\\"},
         {u"Mine", u"C:\\App\\Mine\\"},
         {u"D:\\Mine\\", u"D:\\Mine\\"},
         {u"%USER%\\x%USER%", u"C:\\App\\ann\\xann\\"},
         {u"D:\\%NONE%USER%", u"D:\\%NONEann\\"},
         {u"D:\\100%", u"D:\\100%\\"},
         {u"%HOME%\\Mine", u"C:\\Users\\Ann\\Mine\\"},
         {u"%SHARE%\\Mine", u"\\\\server\\share\\Mine\\"},
         {u"\\\\server\\share", u"\\\\server\\share\\"},
         {u"D:\\%LONG%", u"D:\\%LONG%\\"}},
        [&](std::u16string_view stored) { return EffectivePhrasesFolder(stored, where, access); });
}

TEST(TempFiles, EachIsDeletedOnceAndTheLogTellsWhich) {
    TempFileList list;
    for (const char* name : {"one", "held", "two"}) {
        list.Add(name);
    }
    MemoryLog log;
    const auto deleteFile = [](const std::filesystem::path& path) { return path != "held"; };
    EXPECT_EQ(list.DeleteAll(deleteFile, log), 2U);
    EXPECT_TRUE(log.Tells(u"FAIL on delete temp file on exit [held]"));
    EXPECT_TRUE(log.Tells(u"Deleted 2 from 3"));
    EXPECT_EQ(list.DeleteAll(deleteFile, log), 0U);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/file_locations.h"

#include <map>
#include <set>

#include "fakes/text_cases.h"

namespace vbr {
namespace {

// Files and folders by their full paths, and one user.
class FakeFileAccess : public FileAccess {
  public:
    using Path = std::u16string;

    DriveKind Drive = DriveKind::Fixed;
    std::set<Path> Files;
    std::set<Path> Writable;
    std::set<Path> MadeFolders;
    std::map<Path, std::u16string> Variables;

    DriveKind KindOfDrive(std::u16string_view) const override { return Drive; }
    bool FileExists(std::u16string_view path) const override { return Files.contains(Path(path)); }
    bool CanWrite(std::u16string_view path) const override { return Writable.contains(Path(path)); }
    bool CreateOpenFile(std::u16string_view path) override {
        const bool done = CanWrite(path.substr(0, path.rfind(u'\\') + 1));
        if (done) {
            Files.emplace(path);
            Writable.emplace(path);
        }
        return done;
    }
    bool CreateOpenFolder(std::u16string_view path) override {
        return MadeFolders.emplace(path).second;
    }
    std::u16string UserProfileFolder() const override { return u"C:\\Users\\Ann"; }
    std::u16string ApplicationDataFolder() const override { return u"C:\\Users\\Ann\\Data"; }
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const override {
        const auto found = Variables.find(Path(name));
        return found == Variables.end() ? std::nullopt : std::optional(found->second);
    }
};

constexpr std::u16string_view kModule = u"C:\\App\\Vellumbridge.exe";
const std::u16string kFolder = u"C:\\App\\";
const std::u16string kSettings = u"C:\\App\\Settings.ini";
const std::u16string kLog = u"C:\\App\\LogReport.txt";
const std::u16string kUserSettings = u"C:\\Users\\Ann\\Vellumbridge\\Settings.ini";
const std::u16string kUserLog = u"C:\\Users\\Ann\\Data\\LogReport_Vellumbridge.txt";

TEST(FileLocations, StandBesideTheProgramWhereThatMayBeWritten) {
    const struct {
        std::set<std::u16string> Files;
        std::set<std::u16string> Writable;
        std::u16string Settings;
        std::u16string Log;
    } cases[] = {{{}, {kFolder}, kSettings, kLog},
                 {{}, {}, kUserSettings, kUserLog},
                 {{kSettings, kLog}, {kSettings, kLog}, kSettings, kLog},
                 {{kSettings, kLog}, {kFolder}, kUserSettings, kUserLog},  // read-only
                 {{kSettings}, {kSettings}, kSettings, kUserLog}};
    for (const auto& c : cases) {
        FakeFileAccess access;
        access.Files = c.Files;
        access.Writable = c.Writable;
        const FileLocations where = ChooseFileLocations(kModule, access);
        EXPECT_TRUE(access.FileExists(kSettings) || c.Writable.empty());  // it is made
        EXPECT_EQ(where.SettingsFile, c.Settings);
        EXPECT_EQ(where.LogFile, c.Log);
        EXPECT_EQ(access.MadeFolders.contains(u"C:\\Users\\Ann\\Vellumbridge\\"),
                  c.Settings == kUserSettings);
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
    access.Variables = {{u"USER", u"ann"}, {u"LONG", std::u16string(1000, u'x')}};
    FileLocations where;
    where.ProgramFolder = kFolder;
    ExpectTexts(
        {{u"", u"C:\\App\\UserPhrases\\"},
         {u"Mine", u"C:\\App\\Mine\\"},
         {u"D:\\Mine\\", u"D:\\Mine\\"},
         {u"%USER%\\x%USER%", u"C:\\App\\ann\\xann\\"},
         {u"D:\\%NONE%USER%", u"D:\\%NONEann\\"},
         {u"D:\\100%", u"D:\\100%\\"},
         {u"D:\\%LONG%", u"D:\\%LONG%\\"}},
        [&](std::u16string_view stored) { return EffectivePhrasesFolder(stored, where, access); });
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "settings/file_locations.h"

#include "base/text.h"
#include "settings/phrases_folder.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSettingsName = u"Settings.ini";
constexpr std::size_t kVariableMax = 999;

std::u16string FolderOf(std::u16string_view path) {
    const std::size_t slash = path.find_last_of(u"\\/");
    return std::u16string(path.substr(0, slash == path.npos ? 0 : slash + 1));
}

std::u16string WithBackslash(std::u16string folder) {
    if (!folder.empty() && folder.back() != u'\\') {
        folder += u'\\';
    }
    return folder;
}

bool IsPortable(DriveKind kind) {
    return kind == DriveKind::Unknown || kind == DriveKind::NoRoot ||
           kind == DriveKind::Removable || kind == DriveKind::Remote;
}

// An existing file must be writable itself, a missing one needs a writable folder.
bool CanKeep(const std::u16string& file, const std::u16string& folder, const FileAccess& access) {
    return access.FileExists(file) ? access.CanWrite(file) : access.CanWrite(folder);
}

std::u16string ChooseSettingsFile(const FileLocations& where, FileAccess& access) {
    if (!access.FileExists(where.LocalSettings)) {
        access.CreateEmptyFile(where.LocalSettings);
    }
    if (where.Portable || CanKeep(where.LocalSettings, where.ProgramFolder, access)) {
        return where.LocalSettings;
    }
    access.CreateFolder(FolderOf(where.UserSettings));
    return where.UserSettings;
}

std::u16string ChooseLogFile(const FileLocations& where, const FileAccess& access) {
    const std::u16string beside = where.ProgramFolder + u"LogReport.txt";
    if (where.Portable || CanKeep(beside, where.ProgramFolder, access)) {
        return beside;
    }
    return WithBackslash(access.ApplicationDataFolder()) + u"LogReport_Vellumbridge.txt";
}

std::u16string ExpandVariables(std::u16string_view text, const FileAccess& access) {
    std::u16string out;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = text.find(u'%', at);
        const std::size_t close = open == text.npos ? text.npos : text.find(u'%', open + 1);
        if (close == text.npos) {
            break;
        }
        out += text.substr(at, open - at);
        const auto value = access.EnvironmentVariable(text.substr(open + 1, close - open - 1));
        if (value && value->size() <= kVariableMax) {
            out += *value;
            at = close + 1;
        } else {
            out += text.substr(open, close - open);
            at = close;
        }
    }
    out += text.substr(at);
    return out;
}

}  // namespace

std::u16string FileLocations::HookLibrary() const {
    return ProgramFolder + u"Vellumbridge.dll";
}
std::u16string FileLocations::Editor() const {
    return ProgramFolder + u"VellumbridgeEditor.exe";
}
std::u16string FileLocations::Welcome() const {
    return ProgramFolder + u"Vellumbridge_Welcome.exe";
}

std::u16string DriveRootOf(std::u16string_view path) {
    if (!path.starts_with(u"\\\\")) {
        return Concat(path.substr(0, path.find(u':') + 1), u"\\");
    }
    const std::size_t serverEnd = path.find(u'\\', 2);
    const std::size_t shareEnd =
        serverEnd == path.npos ? path.npos : path.find(u'\\', serverEnd + 1);
    return WithBackslash(std::u16string(path.substr(0, shareEnd)));
}

FileLocations ChooseFileLocations(std::u16string_view modulePath, FileAccess& access) {
    FileLocations where;
    where.ModulePath = modulePath;
    where.ProgramFolder = FolderOf(modulePath);
    where.Portable = IsPortable(access.KindOfDrive(DriveRootOf(modulePath)));
    where.LocalSettings = where.ProgramFolder + std::u16string(kSettingsName);
    where.UserSettings = WithBackslash(access.UserProfileFolder()) + u"Vellumbridge\\" +
                         std::u16string(kSettingsName);
    where.SettingsFile = ChooseSettingsFile(where, access);
    where.LogFile = ChooseLogFile(where, access);
    return where;
}

SettingsFiles SettingsFilesOf(const FileLocations& locations) {
    return {locations.SettingsFile, locations.LocalSettings, locations.UserSettings,
            locations.ProgramFolder, locations.ModulePath.substr(locations.ProgramFolder.size())};
}

std::u16string EffectivePhrasesFolder(std::u16string_view stored, const FileLocations& locations,
                                      const FileAccess& access) {
    if (stored.empty()) {
        return DefaultPhrasesFolder(locations.ProgramFolder);
    }
    std::u16string folder = ExpandVariables(stored, access);
    const bool isOnShare = folder.starts_with(u"\\\\") || folder.starts_with(u"//");
    if (!isOnShare && folder.find(u':') == folder.npos) {
        folder.insert(0, locations.ProgramFolder);
    }
    return WithBackslash(std::move(folder));
}

}  // namespace vbr

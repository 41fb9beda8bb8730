// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>

#include "settings/file_locations.h"

namespace vbr {

// Files and folders by their full paths, and one user.
class FakeFileAccess : public FileAccess {
  public:
    using Path = std::u16string;

    DriveKind Drive = DriveKind::Fixed;
    std::set<Path> Files;
    std::set<Path> Writable;
    std::set<Path> OpenToOthers;
    std::set<Path> MadeFolders;
    std::map<Path, std::u16string> Variables;

    DriveKind KindOfDrive(std::u16string_view) const override { return Drive; }
    bool FileExists(std::u16string_view path) const override { return Files.contains(Path(path)); }
    bool CanWrite(std::u16string_view path) const override { return Writable.contains(Path(path)); }
    bool CanOthersWrite(std::u16string_view path) const override {
        return OpenToOthers.contains(Path(path));
    }
    bool CreateEmptyFile(std::u16string_view path) override {
        const bool done = CanWrite(path.substr(0, path.rfind(u'\\') + 1));
        if (done) {
            Files.emplace(path);
            Writable.emplace(path);
        }
        return done;
    }
    bool CreateFolder(std::u16string_view path) override {
        return MadeFolders.emplace(path).second;
    }
    std::u16string UserProfileFolder() const override { return u"C:\\Users\\Ann"; }
    std::u16string ApplicationDataFolder() const override { return u"C:\\Users\\Ann\\Data"; }
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const override {
        const auto found = Variables.find(Path(name));
        return found == Variables.end() ? std::nullopt : std::optional(found->second);
    }
};

}  // namespace vbr

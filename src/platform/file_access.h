// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// Kind of the drive that holds a path, numbered as GetDriveTypeW does.
enum class DriveKind {
    Unknown = 0,
    NoRoot = 1,
    Removable = 2,
    Fixed = 3,
    Remote = 4,
    Optical = 5,
    RamDisk = 6,
};

// What the choice of file locations asks of the system. Paths are Windows paths with backslashes.
class FileAccess {
  public:
    virtual ~FileAccess() = default;

    // `root` is a drive's or a share's root with its backslash.
    virtual DriveKind KindOfDrive(std::u16string_view root) const = 0;
    virtual bool FileExists(std::u16string_view path) const = 0;
    // Whether this process may write the file or folder, by its access rights and attributes.
    virtual bool CanWrite(std::u16string_view path) const = 0;
    // Whether a program of this user could write the file or folder that has no more rights than
    // the user's programs usually have.
    virtual bool CanOthersWrite(std::u16string_view path) const = 0;
    // Creates an empty file, or a folder, with the rights of the folder it is in; false when that
    // fails.
    virtual bool CreateEmptyFile(std::u16string_view path) = 0;
    virtual bool CreateFolder(std::u16string_view path) = 0;
    virtual std::u16string UserProfileFolder() const = 0;
    virtual std::u16string ApplicationDataFolder() const = 0;
    // The value of "%NAME%", or nothing when there is no such variable.
    virtual std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const = 0;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_access.h"

namespace vbr {

class WinFileAccess : public FileAccess {
  public:
    DriveKind KindOfDrive(std::u16string_view root) const override;
    bool FileExists(std::u16string_view path) const override;
    bool CanWrite(std::u16string_view path) const override;
    bool CanOthersWrite(std::u16string_view path) const override;
    bool CreateEmptyFile(std::u16string_view path) override;
    bool CreateFolder(std::u16string_view path) override;
    std::u16string UserProfileFolder() const override;
    std::u16string ApplicationDataFolder() const override;
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const override;
};

}  // namespace vbr

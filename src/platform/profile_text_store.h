// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_store.h"
#include "platform/profile_store.h"

namespace vbr {

// What stands where an INI file is looked for.
struct ProfileFile {
    bool Exists = false;
    bool Writable = true;              // a missing file may be made
    std::optional<std::string> Bytes;  // nothing when it can't be read or is no settings file
};

// Larger than any settings or language file; a larger one is left alone.
inline constexpr std::uintmax_t kProfileMaxBytes = 1 << 20;

ProfileFile InspectProfile(const std::filesystem::path& path);

// Of the file's bytes as they are.
ProfileValue ReadProfile(const ProfileFile& file, std::u16string_view section,
                         std::u16string_view key);

// INI files read and written as ProfileText, without the platform's profile functions.
class ProfileTextStore : public ProfileStore {
  public:
    explicit ProfileTextStore(FileStore& files) : files_(files) {}

    ProfileValue Read(const std::filesystem::path& file, std::u16string_view section,
                      std::u16string_view key) const override;
    bool WriteString(const std::filesystem::path& file, std::u16string_view section,
                     std::u16string_view key, std::u16string_view value) override;

  private:
    FileStore& files_;
};

}  // namespace vbr

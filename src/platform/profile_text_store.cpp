// SPDX-License-Identifier: MIT
#include "platform/profile_text_store.h"

#include <fstream>

namespace vbr {
namespace {

// By a stream, which does not keep others from writing meanwhile.
std::optional<std::string> ReadAll(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || size > kProfileMaxBytes || !file) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    if (file.bad()) {
        return std::nullopt;
    }
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

}  // namespace

ProfileFile InspectProfile(const std::filesystem::path& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return {};
    }
    ProfileFile file;
    file.Exists = true;
    file.Writable = (status.permissions() & fs::perms::owner_write) != fs::perms::none;
    if (fs::is_regular_file(status)) {
        file.Bytes = ReadAll(path);
    }
    return file;
}

ProfileValue ReadProfile(const ProfileFile& file, std::u16string_view section,
                         std::u16string_view key) {
    if (!file.Bytes) {
        return {file.Exists ? ProfileRead::Failed : ProfileRead::Missing, {}};
    }
    auto value = ProfileText(*file.Bytes).Get(section, key);
    return value ? ProfileValue{ProfileRead::Found, *std::move(value)} : ProfileValue{};
}

ProfileValue ProfileTextStore::Read(const std::filesystem::path& file, std::u16string_view section,
                                    std::u16string_view key) const {
    return ReadProfile(InspectProfile(file), section, key);
}

bool ProfileTextStore::WriteString(const std::filesystem::path& file, std::u16string_view section,
                                   std::u16string_view key, std::u16string_view value) {
    const ProfileFile found = InspectProfile(file);
    if (!found.Writable || (found.Exists && !found.Bytes)) {
        return false;
    }
    ProfileText text(found.Bytes.value_or(""));
    return text.Set(section, key, value) && !files_.Replace(file, text.Bytes());
}

}  // namespace vbr

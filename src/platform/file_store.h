// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/system_error.h"

namespace vbr {

enum class PathKind { Missing, File, Folder };

struct FolderEntry {
    std::u16string Name;
    PathKind Kind = PathKind::File;
};

// Whole files and the folders that hold them, where streams lack what is needed: sharing, flushing,
// security, long paths, odd names.
class FileStore {
  public:
    virtual ~FileStore() = default;

    // All bytes of the file, or nothing when it is open for writing elsewhere or can't be read.
    virtual std::optional<std::string> Read(const std::filesystem::path& path) = 0;

    // Writes `bytes` beside the file, flushes, and swaps it in with the rights of the old file, or
    // of its folder, and no read-only attribute. On an error the old file is left whole.
    virtual std::optional<SystemError> Replace(const std::filesystem::path& path,
                                               std::string_view bytes) = 0;

    virtual PathKind KindOf(const std::filesystem::path& path) = 0;

    // Adds what the folder holds, in the system's order; what links lead to counts. After an error
    // the entries read so far are there.
    virtual std::optional<SystemError> List(const std::filesystem::path& folder,
                                            std::vector<FolderEntry>& entries) = 0;

    // The same text for the same folder, whatever path or link leads to it; empty when it can't be
    // told.
    virtual std::u16string FolderIdentity(const std::filesystem::path& folder) = 0;
};

}  // namespace vbr

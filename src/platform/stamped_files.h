// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "base/file_time.h"
#include "platform/file_store.h"

namespace vbr {

// The error of a file that is there already, as Windows numbers it.
inline constexpr std::uint32_t kErrorFileExists = 80;

// The marks of a file that streams don't reach. A creation time of 0 leaves it as the system has
// it; some file systems forget it.
struct FileStamp {
    FileTicks Created = 0;
    bool ReadOnly = false;
};

// Single files with their marks.
class StampedFiles {
  public:
    virtual ~StampedFiles() = default;

    // Makes a file that was not there, writes the pieces one behind the other and flushes. On an
    // error no file is left.
    virtual std::optional<SystemError> CreateNew(const std::filesystem::path& path,
                                                 std::span<const std::span<const std::byte>> pieces,
                                                 const FileStamp& stamp) = 0;
    virtual std::optional<SystemError> SetStamp(const std::filesystem::path& path,
                                                const FileStamp& stamp) = 0;

    struct Content {
        std::vector<std::byte> Bytes;
        FileTicks Created = 0;
    };
    // Nothing when it can't be opened or read, or is beyond 256 MiB.
    virtual std::optional<Content> Read(const std::filesystem::path& path) = 0;

    // Also a read-only one. A file that isn't there is no error.
    virtual std::optional<SystemError> Delete(const std::filesystem::path& path) = 0;
};

}  // namespace vbr

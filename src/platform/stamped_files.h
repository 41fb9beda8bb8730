// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/file_time.h"
#include "platform/file_store.h"

namespace vbr {

// The error of a file that is there already, as Windows numbers it.
inline constexpr std::uint32_t kErrorFileExists = 80;

// Files on their way in have names of this form: no extension of ours, so that a half-written file
// is never taken for a phrase or a clip, and short, so that any name can be replaced.
inline constexpr std::u16string_view kNewFilePrefix = u"~vbr";
inline constexpr std::u16string_view kNewFileSuffix = u".new";

// Larger files are not read.
inline constexpr std::uint64_t kMaxStampedFile = 256ULL << 20;

// The marks of a file that streams don't reach. A creation time of 0 leaves it as the system has
// it; some file systems forget it.
struct FileStamp {
    FileTicks Created = 0;
    bool ReadOnly = false;
};

// A file that no other process can hold at the same time; let go with this object.
class HeldFile {
  public:
    virtual ~HeldFile() = default;
};

// Single files with their marks. New ones have the rights of their folder.
class StampedFiles {
  public:
    virtual ~StampedFiles() = default;

    // Makes a file that was not there, writes the pieces one behind the other and flushes. On an
    // error no file is left.
    virtual std::optional<SystemError> CreateNew(const std::filesystem::path& path,
                                                 std::span<const std::span<const std::byte>> pieces,
                                                 const FileStamp& stamp) = 0;
    // Writes the bytes beside the path, flushes and moves them there, in the place of a file that
    // is there or, without `replace`, only where none is. On an error all is as it was.
    virtual std::optional<SystemError> MoveIn(const std::filesystem::path& path,
                                              std::string_view bytes, const FileStamp& stamp,
                                              bool replace) = 0;
    virtual std::optional<SystemError> SetStamp(const std::filesystem::path& path,
                                                const FileStamp& stamp) = 0;

    struct Content {
        std::vector<std::byte> Bytes;
        FileTicks Created = 0;
    };
    // Nothing when it can't be opened or read, or is beyond kMaxStampedFile.
    virtual std::optional<Content> Read(const std::filesystem::path& path) = 0;

    // Also a read-only one. A file that isn't there is no error.
    virtual std::optional<SystemError> Delete(const std::filesystem::path& path) = 0;

    // Makes the file and holds it, after a short wait for another process that does; the system
    // deletes it when it is let go. Null when it is not to be had.
    virtual std::unique_ptr<HeldFile> Hold(const std::filesystem::path& path) = 0;
};

}  // namespace vbr

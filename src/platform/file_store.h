// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// A failed call of the system: its error code and the system's own text for it.
struct SystemError {
    std::uint32_t Code = 0;
    std::u16string Text;
};

// Whole files, where streams lack what is needed: sharing, flushing, security.
class FileStore {
  public:
    virtual ~FileStore() = default;

    // All bytes of the file, or nothing when it is open for writing elsewhere or can't be read.
    virtual std::optional<std::string> Read(const std::filesystem::path& path) = 0;

    // Writes `bytes` beside the file, flushes, and swaps it in with full access for everybody and
    // no read-only attribute. On an error the old file is left whole.
    virtual std::optional<SystemError> Replace(const std::filesystem::path& path,
                                               std::string_view bytes) = 0;
};

}  // namespace vbr

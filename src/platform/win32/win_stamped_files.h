// SPDX-License-Identifier: MIT
#pragma once

#include "platform/stamped_files.h"

namespace vbr {

class WinStampedFiles : public StampedFiles {
  public:
    std::optional<SystemError> CreateNew(const std::filesystem::path& path,
                                         std::span<const std::span<const std::byte>> pieces,
                                         const FileStamp& stamp) override;
    std::optional<SystemError> MoveIn(const std::filesystem::path& path, std::string_view bytes,
                                      const FileStamp& stamp, bool replace) override;
    std::optional<SystemError> SetStamp(const std::filesystem::path& path,
                                        const FileStamp& stamp) override;
    std::optional<Content> Read(const std::filesystem::path& path) override;
    std::optional<SystemError> Delete(const std::filesystem::path& path) override;
    std::unique_ptr<HeldFile> Hold(const std::filesystem::path& path) override;
};

}  // namespace vbr

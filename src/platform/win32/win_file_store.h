// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_store.h"

namespace vbr {

class WinFileStore : public FileStore {
  public:
    std::optional<std::string> Read(const std::filesystem::path& path) override;
    std::optional<SystemError> Replace(const std::filesystem::path& path,
                                       std::string_view bytes) override;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <mutex>
#include <vector>

#include "platform/log.h"

namespace vbr {

// Temporary files that go when the program ends. Callable from any thread.
class TempFileList {
  public:
    void Add(const std::filesystem::path& path);

    // Empties the list and has each file deleted; `deleteFile` tells whether it was. The number
    // deleted; the log tells each.
    std::size_t DeleteAll(const std::function<bool(const std::filesystem::path&)>& deleteFile,
                          Log& log);

  private:
    std::mutex mutex_;
    std::vector<std::filesystem::path> paths_;
};

}  // namespace vbr

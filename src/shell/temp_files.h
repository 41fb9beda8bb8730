// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <mutex>
#include <vector>

#include "platform/log.h"

namespace vbr {

// Temporary files that go when the program ends. Callable from any thread.
class TempFileList {
  public:
    void Add(const std::filesystem::path& path);

    // Deletes all files on the list, read-only ones too, but no folders, and empties the list. The
    // number deleted; the log tells each.
    std::size_t DeleteAll(Log& log);

  private:
    std::mutex mutex_;
    std::vector<std::filesystem::path> paths_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <set>

#include "platform/file_store.h"

namespace vbr {

// Reaches paths of any length, and names that end in a point or a blank.
class WinFileStore : public FileStore {
  public:
    std::optional<std::string> Read(const std::filesystem::path& path) override;
    std::optional<SystemError> Replace(const std::filesystem::path& path,
                                       std::string_view bytes) override;
    PathKind KindOf(const std::filesystem::path& path) override;
    std::optional<SystemError> List(const std::filesystem::path& folder,
                                    std::vector<FolderEntry>& entries) override;
    std::u16string FolderIdentity(const std::filesystem::path& folder) override;

  private:
    // Whether the folder hasn't been asked for before: what a crash left there goes once.
    bool IsFirstIn(const std::filesystem::path& folder);

    std::mutex mutex_;
    std::set<std::filesystem::path> swept_;
};

}  // namespace vbr

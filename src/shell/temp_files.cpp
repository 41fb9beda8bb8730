// SPDX-License-Identifier: MIT
#include "shell/temp_files.h"

#include <system_error>

namespace vbr {
namespace {

namespace fs = std::filesystem;

bool DeleteFileOf(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) {
        return false;
    }
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
    return fs::remove(path, error);
}

}  // namespace

void TempFileList::Add(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    paths_.push_back(path);
}

std::size_t TempFileList::DeleteAll(Log& log) {
    const std::lock_guard lock(mutex_);
    if (paths_.empty()) {
        log.Write(u"No files for deletion on exit");
        return 0;
    }
    std::size_t deleted = 0;
    for (const fs::path& path : paths_) {
        const bool gone = DeleteFileOf(path);
        deleted += gone ? 1 : 0;
        log.Write(
            Concat(gone ? u"Delete temp file on exit [" : u"FAIL on delete temp file on exit [",
                   path.u16string(), u"]"));
    }
    log.Write(Concat(u"Delete temp files on exit. Deleted ", deleted, u" from ", paths_.size()));
    paths_.clear();
    return deleted;
}

}  // namespace vbr

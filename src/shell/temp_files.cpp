// SPDX-License-Identifier: MIT
#include "shell/temp_files.h"

namespace vbr {

void TempFileList::Add(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex_);
    paths_.push_back(path);
}

std::size_t TempFileList::DeleteAll(
    const std::function<bool(const std::filesystem::path&)>& deleteFile, Log& log) {
    const std::lock_guard lock(mutex_);
    if (paths_.empty()) {
        log.Write(u"No files for deletion on exit");
        return 0;
    }
    std::size_t deleted = 0;
    for (const std::filesystem::path& path : paths_) {
        const bool gone = deleteFile(path);
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

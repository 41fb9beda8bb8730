// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_store.h"

namespace vbr {

// Files of the machine that runs the tests, by plain streams.
class NativeFileStore : public FileStore {
  public:
    // While set, Replace leaves the file alone and gives this error.
    std::optional<SystemError> ReplaceError;
    // While set, no folder can be listed.
    std::optional<SystemError> ListError;

    std::optional<std::string> Read(const std::filesystem::path& path) override {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            return std::nullopt;
        }
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    std::optional<SystemError> Replace(const std::filesystem::path& path,
                                       std::string_view bytes) override {
        if (ReplaceError) {
            return ReplaceError;
        }
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (!file) {
            return SystemError{5, u"cannot write the file"};
        }
        return std::nullopt;
    }

    PathKind KindOf(const std::filesystem::path& path) override {
        std::error_code ignored;
        const std::filesystem::file_status status = std::filesystem::status(path, ignored);
        if (!std::filesystem::exists(status)) {
            return PathKind::Missing;
        }
        return std::filesystem::is_directory(status) ? PathKind::Folder : PathKind::File;
    }

    std::optional<SystemError> List(const std::filesystem::path& folder,
                                    std::vector<FolderEntry>& entries) override {
        if (ListError) {
            return ListError;
        }
        std::error_code error;
        for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            std::error_code ignored;
            entries.push_back({entry->path().filename().u16string(),
                               entry->is_directory(ignored) ? PathKind::Folder : PathKind::File});
        }
        if (error) {
            return SystemError{static_cast<std::uint32_t>(error.value()), u"cannot list"};
        }
        return std::nullopt;
    }

    std::u16string FolderIdentity(const std::filesystem::path& folder) override {
        std::error_code ignored;
        return std::filesystem::canonical(folder, ignored).u16string();
    }
};

}  // namespace vbr

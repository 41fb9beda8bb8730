// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_store.h"

namespace vbr {

// Files of the machine that runs the tests, by plain streams.
class NativeFileStore : public FileStore {
  public:
    // While set, Replace leaves the file alone and gives this error.
    std::optional<SystemError> ReplaceError;

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
};

}  // namespace vbr

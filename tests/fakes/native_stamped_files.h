// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <unordered_map>

#include "platform/stamped_files.h"

namespace vbr {

// Files of the machine that runs the tests; their creation times are kept here.
class NativeStampedFiles : public StampedFiles {
  public:
    using Path = std::filesystem::path;

    // While set, no file can be made and none deleted.
    std::optional<SystemError> Broken;
    std::unordered_map<std::string, FileTicks> Created;

    std::optional<SystemError> CreateNew(const Path& path,
                                         std::span<const std::span<const std::byte>> pieces,
                                         const FileStamp& stamp) override {
        if (Broken) {
            return Broken;
        }
        if (std::filesystem::exists(path)) {
            return SystemError{kErrorFileExists, u"it exists"};
        }
        std::ofstream file(path, std::ios::binary);
        for (const auto piece : pieces) {
            file.write(reinterpret_cast<const char*>(piece.data()),
                       static_cast<std::streamsize>(piece.size()));
        }
        file.close();
        return file ? SetStamp(path, stamp) : SystemError{5, u"it can't be written"};
    }
    std::optional<SystemError> SetStamp(const Path& path, const FileStamp& stamp) override {
        namespace fs = std::filesystem;
        if (stamp.Created != 0) {
            Created[path.string()] = stamp.Created;
        }
        std::error_code error;
        fs::permissions(path, fs::perms::owner_write,
                        stamp.ReadOnly ? fs::perm_options::remove : fs::perm_options::add, error);
        return error ? std::optional(SystemError{2, u"it has no marks"}) : std::nullopt;
    }
    std::optional<Content> Read(const Path& path) override {
        std::ifstream file;
        file.rdbuf()->pubsetbuf(nullptr, 0);  // it is read at once
        file.open(path, std::ios::binary | std::ios::ate);
        if (!file) {
            return std::nullopt;
        }
        const std::streamoff size = file.tellg();
        file.seekg(0);
        Content content;
        content.Bytes.resize(static_cast<std::size_t>(size));
        file.read(reinterpret_cast<char*>(content.Bytes.data()), size);
        const auto created = Created.find(path.string());
        content.Created = created == Created.end() ? 0 : created->second;
        return file ? std::optional(std::move(content)) : std::nullopt;
    }
    std::optional<SystemError> Delete(const Path& path) override {
        if (Broken) {
            return Broken;
        }
        std::error_code error;
        std::filesystem::remove(path, error);
        return error ? std::optional(SystemError{5, u"it can't be deleted"}) : std::nullopt;
    }
};

}  // namespace vbr

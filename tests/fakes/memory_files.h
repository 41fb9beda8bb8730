// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "platform/file_store.h"
#include "platform/stamped_files.h"

namespace vbr {

// One folder of files in memory. One of its calls can fail, and the machine can stop at any: what
// that call was at is done, half done or not done at all, and no later one does anything.
class MemoryDisk {
  public:
    struct File {
        std::vector<std::byte> Bytes;
        FileTicks Created = 0;
    };

    std::map<std::u16string, File> Files;  // by name
    int CallsUntilFailure = -1;
    int CallsUntilStop = -1;
    std::mt19937 Chance;

    bool IsStopped() const { return CallsUntilStop == 0; }

    FileStore& Store() { return store_; }
    StampedFiles& Stamped() { return stamped_; }

  private:
    using Path = std::filesystem::path;
    enum class Effect { None, Half, Whole };

    // What the call that is under way brings about, and whether it says so.
    std::pair<Effect, bool> Next() {
        if (IsStopped()) {
            return {Effect::None, false};
        }
        if (CallsUntilStop > 0 && --CallsUntilStop == 0) {
            return {static_cast<Effect>(Chance() % 3), false};
        }
        const bool fails = CallsUntilFailure >= 0 && CallsUntilFailure-- == 0;
        return fails ? std::pair(Effect::None, false) : std::pair(Effect::Whole, true);
    }
    static std::optional<SystemError> ErrorUnless(bool works) {
        return works ? std::nullopt : std::optional(SystemError{32, u"it is in use"});
    }
    static std::u16string NameOf(const Path& path) { return path.filename().u16string(); }

    class StoreView : public FileStore {
      public:
        explicit StoreView(MemoryDisk& disk) : disk_(disk) {}
        std::optional<std::string> Read(const Path&) override { return std::nullopt; }
        std::optional<SystemError> Replace(const Path&, std::string_view) override {
            return SystemError{};
        }
        PathKind KindOf(const Path& path) override {
            if (!path.has_extension()) {
                return PathKind::Folder;
            }
            return disk_.Files.contains(NameOf(path)) ? PathKind::File : PathKind::Missing;
        }
        std::optional<SystemError> List(const Path&, std::vector<FolderEntry>& entries) override {
            const bool works = disk_.Next().second;
            for (const auto& [name, file] : disk_.Files) {
                if (works) {
                    entries.push_back({name, PathKind::File});
                }
            }
            return ErrorUnless(works);
        }
        std::u16string FolderIdentity(const Path&) override { return {}; }

      private:
        MemoryDisk& disk_;
    };

    class StampedView : public StampedFiles {
      public:
        explicit StampedView(MemoryDisk& disk) : disk_(disk) {}
        std::optional<SystemError> CreateNew(const Path& path,
                                             std::span<const std::span<const std::byte>> pieces,
                                             const FileStamp& stamp) override {
            if (disk_.Files.contains(NameOf(path))) {
                return SystemError{kErrorFileExists, u"it exists"};
            }
            const auto [effect, works] = disk_.Next();
            File file{.Bytes = {}, .Created = stamp.Created};
            for (const auto piece : pieces) {
                file.Bytes.insert(file.Bytes.end(), piece.begin(), piece.end());
            }
            if (effect != Effect::None) {
                file.Bytes.resize(effect == Effect::Half ? file.Bytes.size() / 2
                                                         : file.Bytes.size());
                disk_.Files[NameOf(path)] = std::move(file);
            }
            return ErrorUnless(works);
        }
        std::optional<SystemError> MoveIn(const Path& path, std::string_view bytes,
                                          const FileStamp& stamp, bool replace) override {
            if (!replace && disk_.Files.contains(NameOf(path))) {
                return SystemError{kErrorFileExists, u"it exists"};
            }
            const auto [effect, works] = disk_.Next();
            const std::span<const std::byte> all = std::as_bytes(std::span(bytes));
            if (effect == Effect::Half) {
                disk_.Files[u"~vbr1-1.new"] = {.Bytes = {all.begin(), all.begin() + 3}};
            } else if (effect == Effect::Whole) {
                disk_.Files[NameOf(path)] = {{all.begin(), all.end()}, stamp.Created};
            }
            return ErrorUnless(works);
        }
        std::optional<SystemError> SetStamp(const Path&, const FileStamp&) override {
            return ErrorUnless(disk_.Next().second);
        }
        std::optional<Content> Read(const Path& path) override {
            const auto found = disk_.Files.find(NameOf(path));
            if (!disk_.Next().second || found == disk_.Files.end()) {
                return std::nullopt;
            }
            return Content{found->second.Bytes, found->second.Created};
        }
        std::optional<SystemError> Delete(const Path& path) override {
            const auto [effect, works] = disk_.Next();
            if (effect == Effect::Whole) {
                disk_.Files.erase(NameOf(path));
            }
            return ErrorUnless(works);
        }
        std::unique_ptr<HeldFile> Hold(const Path&) override {
            return disk_.Next().second ? std::make_unique<HeldFile>() : nullptr;
        }

      private:
        MemoryDisk& disk_;
    };

    StoreView store_{*this};
    StampedView stamped_{*this};
};

}  // namespace vbr

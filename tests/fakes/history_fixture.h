// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/text.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"
#include "history/history_folder.h"
#include "history/history_queue.h"
#include "platform/stamped_files.h"

namespace vbr {

// Files of the machine that runs the tests; their creation times are kept here.
class NativeStampedFiles : public StampedFiles {
  public:
    using Path = std::filesystem::path;

    // While set, no file can be made and none deleted, or no description written.
    std::optional<SystemError> Broken;
    std::optional<SystemError> MoveError;
    bool IsHeldByOthers = false;
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
    std::optional<SystemError> MoveIn(const Path& path, std::string_view bytes,
                                      const FileStamp& stamp, bool replace) override {
        if (MoveError) {
            return MoveError;
        }
        if (replace) {
            std::filesystem::remove(path);
        }
        const std::span<const std::byte> piece = std::as_bytes(std::span(bytes));
        return CreateNew(path, std::span(&piece, 1), stamp);
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
    std::unique_ptr<HeldFile> Hold(const Path&) override {
        return IsHeldByOthers ? nullptr : std::make_unique<HeldFile>();
    }
};

// A picture of one colour of pixels.
class FakeBitmap : public Bitmap {
  public:
    FakeBitmap(std::int32_t width, std::byte pixel)
        : header_{.Width = width,
                  .Height = 1,
                  .BitCount = 8,
                  .SizeImage = static_cast<std::uint32_t>(width)},
          pixel_(pixel) {}
    std::optional<BitmapHeader> Header() const override {
        return header_.Width == 0 ? std::nullopt : std::optional(header_);
    }
    std::optional<BitmapBits> Read(const BitmapHeader& header) const override {
        return BitmapBits{{}, std::vector<std::byte>(header.SizeImage, pixel_)};
    }

  private:
    BitmapHeader header_;
    std::byte pixel_;
};

// A time that is `second` seconds into a day.
inline SystemTime TimeAt(std::uint16_t second) {
    return {2024, 5, 1, 6, 7, 0, second, 0};
}

template <typename Text>
std::unique_ptr<CCHItem> ByteItem(ItemFormat format, const Text& text, std::uint16_t second = 0) {
    auto item = std::make_unique<CCHItem>(format, 0, TimeAt(second));
    item->SetData(TextBytes(text));
    return item;
}

inline std::unique_ptr<CCHItem> TextItem(std::u16string_view text, std::uint16_t second = 0) {
    return ByteItem(CHF_UNICODE_TEXT, text, second);
}

inline std::unique_ptr<CCHItem> PictureItem(std::int32_t width, int pixel) {
    auto item = std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(0));
    item->SetPicture(std::make_shared<FakeBitmap>(width, std::byte(pixel)));
    return item;
}

// A queue over a folder of its own on the disk.
struct HistoryFixture {
    TempFolder Temp;
    MemoryLog Log;
    NativeFileStore Store;
    NativeStampedFiles Files;
    HistoryFolder Folder{Temp.Path() / "ClipboardHistory", Store, Files, Log};
    CCHQueue Queue;

    void Add(std::unique_ptr<CCHItem> item, std::uint32_t max = kNoItemLimit) {
        Queue.Add(std::move(item), max);
    }
    // A text of each letter, one second after the other.
    void AddTexts(std::u16string_view letters) {
        for (const char16_t letter : letters) {
            Add(TextItem({&letter, 1}, ++second_));
        }
    }
    // As a save does it.
    bool Save() {
        return Folder.Save(Queue.TakeFileChanges(), Queue.CopyUnsaved(),
                           [this](const CCHItem& saved) { Queue.NoteSaved(saved); });
    }
    // What the next start of the program would bring up.
    std::u16string Reloaded() {
        HistoryFolder folder(Folder.Path(), Store, Files, Log);
        CCHQueue queue;
        folder.Load(queue);
        return TextsOf(queue);
    }
    // Newest first: the texts, a blank between, "!" behind a protected one.
    static std::u16string TextsOf(const CCHQueue& queue) {
        std::u16string texts;
        for (std::size_t i = 0; i < queue.GetCount(); ++i) {
            const CCHItem& item = *queue.GetItem(i);
            texts += i == 0 ? u"" : u" ";
            texts += item.format == CHF_UNICODE_TEXT ? std::u16string(item.WideText())
                                                     : Utf8ToUtf16(item.ByteText());
            texts += item.isProtected ? u"!" : u"";
        }
        return texts;
    }
    std::u16string Texts() const { return TextsOf(Queue); }
    std::set<std::string> FileNames() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder.Path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

  private:
    std::uint16_t second_ = 0;
};

}  // namespace vbr

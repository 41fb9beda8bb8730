// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/native_stamped_files.h"
#include "fakes/temp_folder.h"
#include "history/history_folder.h"
#include "history/history_queue.h"

namespace vbr {

// A picture of one colour of pixels.
class FakeBitmap : public Bitmap {
  public:
    FakeBitmap(std::int32_t width, std::byte pixel) : pixel_(pixel) {
        header_.Width = width;
        header_.Height = 1;
        header_.BitCount = 8;
        header_.SizeImage = static_cast<std::uint32_t>(width);
    }
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
    return {.Year = 2024,
            .Month = 5,
            .DayOfWeek = 1,
            .Day = 6,
            .Hour = 7,
            .Minute = 0,
            .Second = second,
            .Milliseconds = 0};
}

inline std::unique_ptr<CCHItem> TextItem(std::u16string_view text, std::uint16_t second = 0) {
    auto item = std::make_unique<CCHItem>(CHF_UNICODE_TEXT, 0, TimeAt(second));
    item->SetData(TextBytes(text));
    return item;
}

inline std::unique_ptr<CCHItem> ByteItem(ItemFormat format, std::string_view text,
                                         std::uint16_t second = 0) {
    auto item = std::make_unique<CCHItem>(format, 0, TimeAt(second));
    item->SetData(TextBytes(text));
    return item;
}

// A queue over a folder of its own on the disk.
struct HistoryDesk {
    TempFolder Temp;
    MemoryLog Log;
    NativeFileStore Store;
    NativeStampedFiles Files;
    HistoryFolder Folder{Temp.Path() / "ClipboardHistory", Store, Files, Log};
    CCHQueue Queue{Folder};

    void Add(std::unique_ptr<CCHItem> item, std::uint32_t max = kNoItemLimit) {
        Queue.Add(std::move(item), max);
    }
    // As a save does it.
    void Save() {
        Folder.Make();
        Folder.Save(Queue.CopyUnsaved(), [this](const CCHItem& saved) { Queue.NoteSaved(saved); });
    }
    // What the next start of the program would bring up.
    std::u16string Reloaded() {
        CCHQueue queue(Folder);
        Folder.Load(queue);
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
};

}  // namespace vbr

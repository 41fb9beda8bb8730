// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fuzzing.h"
#include "history/history_folder.h"
#include "history/item_edits.h"
#include "history/item_export.h"
#include "history/item_text.h"

namespace {

using Path = std::filesystem::path;

constexpr std::string_view kSeparator = "\n----\n";
const Path kFolder = "/history";
const Path kInfo = kFolder / "vellumbridge_cb1.info";

// One folder in memory. A file that isn't there holds `Default`.
struct Disk {
    std::map<Path, std::string> Files;
    std::string Default;

    std::string& At(const Path& path) {
        vbr::Require(path.parent_path() == kFolder && !path.filename().empty());
        return Files.try_emplace(path, Default).first->second;
    }
};

class DiskStore : public vbr::FileStore {
  public:
    explicit DiskStore(Disk& disk) : disk_(disk) {}
    std::optional<std::string> Read(const Path& path) override { return disk_.At(path); }
    std::optional<vbr::SystemError> Replace(const Path& path, std::string_view bytes) override {
        disk_.At(path) = bytes;
        return std::nullopt;
    }
    vbr::PathKind KindOf(const Path&) override { return vbr::PathKind::Folder; }
    std::optional<vbr::SystemError> List(const Path&,
                                         std::vector<vbr::FolderEntry>& entries) override {
        for (const auto& [path, bytes] : disk_.Files) {
            entries.push_back({path.filename().u16string(), vbr::PathKind::File});
        }
        return std::nullopt;
    }
    std::u16string FolderIdentity(const Path&) override { return {}; }

  private:
    Disk& disk_;
};

class DiskFiles : public vbr::StampedFiles {
  public:
    explicit DiskFiles(Disk& disk) : disk_(disk) {}
    std::optional<vbr::SystemError> CreateNew(const Path& path,
                                              std::span<const std::span<const std::byte>> pieces,
                                              const vbr::FileStamp&) override {
        std::string& bytes = disk_.At(path);
        bytes.clear();
        for (const auto piece : pieces) {
            bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
        }
        return std::nullopt;
    }
    std::optional<vbr::SystemError> MoveIn(const Path& path, std::string_view bytes,
                                           const vbr::FileStamp&, bool) override {
        disk_.At(path) = bytes;
        return std::nullopt;
    }
    std::optional<vbr::SystemError> SetStamp(const Path&, const vbr::FileStamp&) override {
        return std::nullopt;
    }
    std::optional<Content> Read(const Path& path) override {
        Content content;
        for (const char byte : disk_.At(path)) {
            content.Bytes.push_back(static_cast<std::byte>(byte));
        }
        return content;
    }
    std::optional<vbr::SystemError> Delete(const Path& path) override {
        disk_.Files.erase(path);
        return std::nullopt;
    }
    std::unique_ptr<vbr::HeldFile> Hold(const Path&) override {
        return std::make_unique<vbr::HeldFile>();
    }

  private:
    Disk& disk_;
};

// The history folder over a disk, and what it gives at a start of the program.
struct History {
    explicit History(Disk& disk) : Store(disk), Stamped(disk) { Folder.Load(Queue); }

    DiskStore Store;
    DiskFiles Stamped;
    vbr::NoLog Log;
    vbr::HistoryFolder Folder{kFolder, Store, Stamped, Log};
    vbr::CCHQueue Queue;
};

// A text as a description holds it, where a line end or a zero has no place.
std::u16string OneLine(std::u16string text) {
    for (char16_t& unit : text) {
        unit = unit == u'\r' || unit == u'\n' || unit == u'\0' ? u' ' : unit;
    }
    return text;
}

// What was read of an item's description survives being written.
void TryInfo(std::string_view bytes) {
    const vbr::ItemInfo info = vbr::ReadItemInfo(bytes);
    const vbr::ItemInfo back = vbr::ReadItemInfo(vbr::WriteItemInfo(info));
    vbr::Require(back.Protected == info.Protected && back.WndName == OneLine(info.WndName) &&
                 back.ExeName == OneLine(info.ExeName) && back.Url == OneLine(info.Url) &&
                 back.Time == info.Time && back.Files.size() == info.Files.size());
    for (std::size_t i = 0; i < info.Files.size(); ++i) {
        vbr::Require(back.Files[i] == OneLine(info.Files[i]));
    }
    // Bytes in the value that is replaced may decide how the file is decoded; then nothing else
    // does.
    const std::string known = vbr::WithProtection(bytes, info.Protected);
    const vbr::ItemInfo one = vbr::ReadItemInfo(known);
    const vbr::ItemInfo other = vbr::ReadItemInfo(vbr::WithProtection(known, !info.Protected));
    vbr::Require(one.Protected == info.Protected && other.Protected != info.Protected &&
                 other.Files == one.Files && other.Time == one.Time);
}

// What was loaded comes back the same after a save into another folder.
void TrySave(const vbr::CCHItem& loaded) {
    Disk disk;
    vbr::ItemList items;
    items.push_back(loaded.Copy());
    items.front()->ForgetStorage();
    History(disk).Folder.Save({}, items, [](const vbr::CCHItem&) {});
    const History restarted(disk);
    vbr::Require(restarted.Queue.GetCount() == 1);
    const vbr::CCHItem& back = *restarted.Queue.GetItem(0);
    vbr::Require(back.format == loaded.format && back.Data() == loaded.Data());
    vbr::Require(back.isProtected == loaded.isProtected &&
                 back.sourceUrl == OneLine(loaded.sourceUrl));
    vbr::Require(back.alternatives.size() == loaded.alternatives.size());
}

// Any item has a caption of one line, and an edit leaves nothing for the same edit to do.
void TryConversions(vbr::CCHQueue& queue) {
    vbr::NoLog log;
    vbr::FakeAnsiText ansi;
    vbr::FakeLocale locale;
    vbr::FakeRichTextEngine engine;
    vbr::ItemTexts texts(ansi, engine, log);
    vbr::ItemEdits edits({queue, ansi, locale, engine, log, [] {}});
    const vbr::CCHItem& item = *queue.GetItem(0);
    const std::u16string caption = texts.MenuCaptionText(item);
    vbr::Require(caption.size() <= 51 && caption.find_first_of(u"\r\n\t") == caption.npos);
    vbr::Require(vbr::ExportItem(item).has_value());
    const std::size_t size = item.Size();
    edits.JoinItem(0);
    vbr::Require(item.format == vbr::CHF_RTF || edits.JoinItem(0) == 0);
    edits.TrimItem(0);
    vbr::Require(item.format == vbr::CHF_RTF || edits.TrimItem(0) == 0);
    vbr::Require(item.Size() <= size + 2);  // an odd or missing terminator becomes whole
    edits.ChangeItemCase(vbr::LetterCase::Upper, 0);
    texts.FullText(item);
}

}  // namespace

// The description of an item and what all the files hold that it names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = vbr::InputText(data, size);
    const std::size_t end = input.find(kSeparator);
    const std::string_view info = input.substr(0, end);
    TryInfo(info);
    Disk disk;
    disk.Files[kInfo] = info;
    disk.Default = end == input.npos ? std::string_view() : input.substr(end + kSeparator.size());
    History history(disk);
    vbr::Require(history.Queue.GetCount() <= 1);
    if (history.Queue.GetCount() == 1) {
        TrySave(*history.Queue.GetItem(0));
        TryConversions(history.Queue);
    }
    return 0;
}

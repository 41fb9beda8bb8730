// SPDX-License-Identifier: MIT
#include "history/history_folder.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "history/history_queue.h"
#include "platform/profile_text_store.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

constexpr std::u16string_view kInfoStem = u"vellumbridge_cb";
constexpr std::u16string_view kInfoExtension = u".info";
constexpr std::u16string_view kDataStem = u"clipboard_history";
constexpr std::u16string_view kUnicodePrefix = u"Unicode_";

constexpr std::array<std::byte, 2> kUtf16Mark = {std::byte{0xFF}, std::byte{0xFE}};

// Names that other programs make meanwhile; more in a row are no accident.
constexpr int kMaxNameTries = 100;

struct FormatExtension {
    ItemFormat Format;
    std::u16string_view Extension;
};

constexpr FormatExtension kExtensions[] = {
    {CHF_UNICODE_TEXT, u".txt"}, {CHF_ANSI_TEXT, u".txt"}, {CHF_RTF, u".rtf"},
    {CHF_KELPNOTES, u".knd"},    {CHF_HTML, u".html"},
};

std::u16string_view ExtensionOf(ItemFormat format) {
    const auto* row =
        std::find_if(std::begin(kExtensions), std::end(kExtensions),
                     [format](const FormatExtension& known) { return known.Format == format; });
    return row == std::end(kExtensions) ? std::u16string_view() : row->Extension;
}

ItemFormat FormatOfFile(std::u16string_view name) {
    const auto* row = std::find_if(
        std::begin(kExtensions), std::end(kExtensions),
        [name](const FormatExtension& known) { return EndsWithNoCase(name, known.Extension); });
    const bool isPlain = row != std::end(kExtensions) && row->Format == CHF_UNICODE_TEXT &&
                         !StartsWithNoCase(name, kUnicodePrefix);
    if (isPlain) {
        return CHF_ANSI_TEXT;
    }
    return row == std::end(kExtensions) ? CHF_UNICODE_TEXT : row->Format;
}

std::u16string NameOf(const fs::path& path) {
    return path.filename().u16string();
}

}  // namespace

bool HistoryFolder::Make() {
    std::error_code error;
    fs::create_directory(folder_, error);
    if (store_.KindOf(folder_) == PathKind::Folder) {
        return true;
    }
    log_.LogError(Concat(u"No folder for the clipboard history: ", folder_.u16string()));
    return false;
}

HistoryFolder::Names HistoryFolder::ListNames() {
    std::vector<FolderEntry> entries;
    store_.List(folder_, entries);
    Names names;
    for (const FolderEntry& entry : entries) {
        names.Taken.insert(ToUpper(entry.Name));
    }
    return names;
}

fs::path HistoryFolder::FreeName(Names& names, std::u16string_view stem,
                                 std::u16string_view extension) const {
    std::uint32_t& number = names.Next[Concat(stem, extension)];
    for (;;) {
        std::u16string name = Concat(stem, ++number, extension);
        if (names.Taken.insert(ToUpper(name)).second) {
            return folder_ / name;
        }
    }
}

bool HistoryFolder::SaveItem(CCHItem& item, Names& names) {
    if (ExtensionOf(item.format).empty()) {
        return false;
    }
    const FileTicks time = FileTicksOf(item.time).value_or(0);
    if (!WriteDataFile(item, {time, item.isProtected}, names)) {
        return false;
    }
    ItemInfo info{item.format,    item.isProtected,        item.wndName, item.exeName,
                  item.sourceUrl, {NameOf(item.dataPath)}, time};
    for (const auto& alternative : item.alternatives) {
        if (WriteDataFile(*alternative, {time, false}, names)) {
            info.Files.push_back(NameOf(alternative->dataPath));
        }
    }
    if (WriteInfo(item, info, names)) {
        return true;
    }
    // Nothing names them.
    for (const std::u16string& name : info.Files) {
        Delete(folder_ / name);
    }
    return false;
}

bool HistoryFolder::WriteDataFile(CCHItem& item, const FileStamp& stamp, Names& names) {
    item.dataPath.clear();
    if (item.Data().empty()) {
        return false;
    }
    const bool isUtf16 = item.format == CHF_UNICODE_TEXT;
    const std::u16string stem = isUtf16 ? Concat(kUnicodePrefix, kDataStem) : Concat(kDataStem);
    const std::span<const std::byte> pieces[] = {kUtf16Mark, item.Data()};
    const std::span<const std::span<const std::byte>> all(pieces);
    std::optional<SystemError> error;
    fs::path path;
    for (int tries = 0; tries < kMaxNameTries; ++tries) {
        path = FreeName(names, stem, ExtensionOf(item.format));
        error = files_.CreateNew(path, all.subspan(isUtf16 ? 0 : 1), stamp);
        if (!error || error->Code != kErrorFileExists) {
            break;
        }
    }
    if (error) {
        log_.LogError(Concat(u"History item not saved: ", path.u16string(), u": ", error->Text));
        return false;
    }
    item.dataPath = path;
    return true;
}

bool HistoryFolder::WriteInfo(CCHItem& item, const ItemInfo& info, Names& names) {
    const fs::path path =
        item.infoPath.empty() ? FreeName(names, kInfoStem, kInfoExtension) : item.infoPath;
    if (const auto error = store_.Replace(path, WriteItemInfo(info))) {
        log_.LogError(Concat(u"History item not saved: ", path.u16string(), u": ", error->Text));
        return false;
    }
    files_.SetStamp(path, {info.Time, info.Protected});
    item.infoPath = path;
    return true;
}

void HistoryFolder::Load(CCHQueue& queue) {
    if (!Make()) {
        return;
    }
    std::vector<FolderEntry> entries;
    if (const auto error = store_.List(folder_, entries)) {
        log_.LogError(
            Concat(u"Clipboard history not read: ", folder_.u16string(), u": ", error->Text));
    }
    for (const FolderEntry& entry : entries) {
        if (entry.Kind == PathKind::File && EndsWithNoCase(entry.Name, kInfoExtension) &&
            IsPlainFileName(entry.Name)) {
            if (auto item = LoadItem(folder_ / entry.Name)) {
                queue.Add(std::move(item), kNoItemLimit);
            }
        }
    }
    queue.SortByTime();
}

std::unique_ptr<CCHItem> HistoryFolder::LoadItem(fs::path infoPath) {
    const auto content = files_.Read(infoPath);
    if (!content || content->Bytes.size() > kProfileMaxBytes) {
        LogSkipped(infoPath, u"it can't be read");
        return nullptr;
    }
    const ItemInfo info =
        ReadItemInfo({reinterpret_cast<const char*>(content->Bytes.data()), content->Bytes.size()});
    if (info.Files.empty()) {
        LogSkipped(infoPath, u"it names no file");
        return nullptr;
    }
    std::unique_ptr<CCHItem> item = LoadNamed(info.Files[0], infoPath);
    if (!item) {
        return nullptr;
    }
    for (std::size_t i = 1; i < info.Files.size(); ++i) {
        if (std::shared_ptr<CCHItem> alternative = LoadNamed(info.Files[i], infoPath)) {
            item->alternatives.push_back(std::move(alternative));
        }
    }
    item->infoPath = std::move(infoPath);
    item->sourceUrl = info.Url;
    item->isProtected = info.Protected;
    item->exeName = info.ExeName;
    item->wndName = info.WndName;
    if (info.Time != 0) {
        item->time = SystemTimeOf(info.Time).value_or(item->time);
    }
    return item;
}

std::unique_ptr<CCHItem> HistoryFolder::LoadNamed(std::u16string_view name,
                                                  const fs::path& infoPath) {
    if (!IsPlainFileName(name)) {
        LogSkipped(infoPath, Concat(u"it names a file elsewhere: ", name));
        return nullptr;
    }
    auto item = LoadDataFile(name);
    if (!item) {
        LogSkipped(infoPath, Concat(u"there is nothing in the file that it names: ", name));
    }
    return item;
}

std::unique_ptr<CCHItem> HistoryFolder::LoadDataFile(std::u16string_view name) {
    fs::path path = folder_ / name;
    auto content = files_.Read(path);
    if (!content) {
        return nullptr;
    }
    const ItemFormat format = FormatOfFile(name);
    ItemBytes& bytes = content->Bytes;
    if (format == CHF_UNICODE_TEXT && bytes.size() >= kUtf16Mark.size() &&
        std::equal(kUtf16Mark.begin(), kUtf16Mark.end(), bytes.begin())) {
        bytes.erase(bytes.begin(), bytes.begin() + kUtf16Mark.size());
    }
    if (bytes.empty()) {
        return nullptr;
    }
    auto item =
        std::make_unique<CCHItem>(format, 0, SystemTimeOf(content->Created).value_or(SystemTime{}));
    item->SetData(std::move(bytes));
    item->dataPath = std::move(path);
    item->storeState = StoreState::Loaded;
    return item;
}

bool HistoryFolder::Delete(const fs::path& path) {
    const auto error = files_.Delete(path);
    if (error) {
        log_.LogError(Concat(u"Cannot delete the: ", path.u16string(), u": ", error->Text));
    }
    return !error;
}

void HistoryFolder::StoreProtection(const CCHItem& item) {
    if (!item.dataPath.empty() && store_.KindOf(item.dataPath) == PathKind::File) {
        files_.SetStamp(item.dataPath, {0, item.isProtected});
    }
    if (item.infoPath.empty() || store_.KindOf(item.infoPath) != PathKind::File) {
        return;
    }
    const std::optional<std::string> bytes = store_.Read(item.infoPath);
    const auto error = bytes
                           ? store_.Replace(item.infoPath, WithProtection(*bytes, item.isProtected))
                           : SystemError{0, u"it can't be read"};
    if (error) {
        log_.LogError(
            Concat(u"Protection not saved: ", item.infoPath.u16string(), u": ", error->Text));
    } else {
        files_.SetStamp(item.infoPath, {FileTicksOf(item.time).value_or(0), item.isProtected});
    }
}

void HistoryFolder::Release(const fs::path& path) {
    files_.SetStamp(path, {0, false});
}

std::size_t HistoryFolder::Clear_Directory_Exclude(const std::vector<fs::path>& excluded) {
    log_.Write(u"CCHQueue::Clear_Directory_Exclude");
    std::vector<FolderEntry> entries;
    if (store_.List(folder_, entries)) {
        log_.LogError(u"INVALID_HANDLE_VALUE  in CCHQueue::Clear_Directory_Exclude");
        return 0;
    }
    return static_cast<std::size_t>(
        std::count_if(entries.begin(), entries.end(), [&](const FolderEntry& entry) {
            if (!IsPlainFileName(entry.Name)) {
                log_.LogError(Concat(u"Cannot delete the: ", entry.Name));
                return false;
            }
            const fs::path path = folder_ / entry.Name;
            const bool stays =
                entry.Kind != PathKind::File ||
                std::any_of(excluded.begin(), excluded.end(), [&path](const fs::path& kept) {
                    return EqualsNoCase(kept.u16string(), path.u16string());
                });
            return !stays && Delete(path);
        }));
}

void HistoryFolder::LogSkipped(const fs::path& path, std::u16string_view why) {
    log_.LogError(Concat(u"History item skipped: ", path.u16string(), u": ", why));
}

}  // namespace vbr

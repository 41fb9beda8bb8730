// SPDX-License-Identifier: MIT
#include "history/item_reader.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "history/item_names.h"
#include "platform/profile_text_store.h"

namespace vbr {

namespace fs = std::filesystem;

std::optional<ItemInfo> ItemReader::ReadInfo(const fs::path& path) {
    const auto content = files_.Read(path);
    if (!content || content->Bytes.size() > kProfileMaxBytes) {
        return std::nullopt;
    }
    return ReadItemInfo(
        {reinterpret_cast<const char*>(content->Bytes.data()), content->Bytes.size()});
}

std::unique_ptr<CCHItem> ItemReader::ReadItem(fs::path infoPath, const ItemInfo& info) {
    if (info.Files.empty()) {
        LogSkipped(infoPath, u"it names no file");
        return nullptr;
    }
    std::unique_ptr<CCHItem> item = ReadNamed(info.Files[0], infoPath);
    if (!item) {
        return nullptr;
    }
    for (std::size_t i = 1; i < info.Files.size(); ++i) {
        if (std::shared_ptr<CCHItem> alternative = ReadNamed(info.Files[i], infoPath)) {
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

std::unique_ptr<CCHItem> ItemReader::ReadNamed(std::u16string_view name, const fs::path& infoPath) {
    if (!IsDataName(name)) {
        LogSkipped(infoPath, Concat(u"it names no data file of the folder: ", name));
        return nullptr;
    }
    auto item = LoadDataFile(name);
    if (!item) {
        LogSkipped(infoPath, Concat(u"there is nothing in the file that it names: ", name));
    }
    return item;
}

std::unique_ptr<CCHItem> ItemReader::LoadDataFile(std::u16string_view name) {
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

void ItemReader::LogSkipped(const fs::path& infoPath, std::u16string_view why) {
    log_.LogError(Concat(u"History item skipped: ", infoPath.u16string(), u": ", why));
}

}  // namespace vbr

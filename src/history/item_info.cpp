// SPDX-License-Identifier: MIT
#include "history/item_info.h"

#include <algorithm>

#include "base/profile_text.h"
#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSection = u"Files";
constexpr std::u16string_view kDataType = u"DataType";
constexpr std::u16string_view kProtected = u"Protected";
constexpr std::u16string_view kWndName = u"WndName";
constexpr std::u16string_view kExeName = u"ExeName";
constexpr std::u16string_view kUrl = u"URL";
constexpr std::u16string_view kTime = u"Time";

constexpr std::size_t kMaxValue = 259;
// Longer texts are cut, since a file that is too large would not be read back at all.
constexpr std::size_t kMaxWritten = 32'000;
// Far more formats than an item has; a damaged file may list thousands.
constexpr std::size_t kMaxFiles = 16;

std::u16string FileKey(std::size_t number) {
    return Concat(u"File", number);
}

// The text as one line that is read back as it is.
std::u16string AsValue(std::u16string_view text) {
    std::u16string value(CutUnits(text, kMaxWritten));
    std::replace_if(
        value.begin(), value.end(),
        [](char16_t unit) { return unit == u'\r' || unit == u'\n' || unit == u'\0'; }, u' ');
    return QuotedProfileValue(value);
}

std::u16string TextOf(const ProfileText& text, std::u16string_view key) {
    return std::u16string(CutUnits(text.Get(kSection, key).value_or(u""), kMaxValue));
}

FileTicks TicksOf(std::u16string_view text) {
    const std::int64_t ticks = ParseDecimal(text);
    return ticks > 0 && SystemTimeOf(static_cast<FileTicks>(ticks)) ? static_cast<FileTicks>(ticks)
                                                                    : 0;
}

}  // namespace

std::string WriteItemInfo(const ItemInfo& info) {
    ProfileText text("");
    const auto set = [&text](std::u16string_view key, std::u16string_view value) {
        text.Set(kSection, key, AsValue(value));
    };
    set(kDataType, ToDecimal(info.DataType));
    set(kProtected, info.Protected ? u"1" : u"0");
    set(kWndName, info.WndName);
    set(kExeName, info.ExeName);
    if (!info.Url.empty()) {
        set(kUrl, info.Url);
    }
    for (std::size_t i = 0; i < info.Files.size(); ++i) {
        set(FileKey(i), info.Files[i]);
    }
    if (info.Time != 0) {
        set(kTime, ToDecimal(static_cast<std::int64_t>(info.Time)));
    }
    return text.Bytes();
}

ItemInfo ReadItemInfo(std::string_view bytes) {
    const ProfileText text(bytes);
    ItemInfo info;
    info.Protected = ParseDecimal(text.Get(kSection, kProtected).value_or(u"")) != 0;
    info.WndName = TextOf(text, kWndName);
    info.ExeName = TextOf(text, kExeName);
    info.Url = TextOf(text, kUrl);
    while (info.Files.size() < kMaxFiles) {
        std::u16string name = TextOf(text, FileKey(info.Files.size()));
        if (name.empty()) {
            break;
        }
        info.Files.push_back(std::move(name));
    }
    info.Time = TicksOf(text.Get(kSection, kTime).value_or(u""));
    return info;
}

std::string WithProtection(std::string_view bytes, bool value) {
    ProfileText text(bytes);
    text.Set(kSection, kProtected, value ? u"1" : u"0");
    return text.Bytes();
}

bool IsPlainFileName(std::u16string_view name) {
    return !name.empty() && name != u"." && name != u".." &&
           name.find_first_of(u"\\/:") == name.npos && IsValidUtf16(name);
}

}  // namespace vbr

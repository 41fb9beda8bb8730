// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include <optional>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSection = u"Settings";
constexpr std::size_t kStringMax = 260;

// One row a key: how its number is read from the record, limited and stored back.
struct IntegerKey {
    std::u16string_view Name;
    std::int64_t (*Get)(const CVBRSettings&);
    void (*Set)(CVBRSettings&, std::int64_t);
};

template <auto Field>
std::int64_t GetField(const CVBRSettings& settings) {
    return static_cast<std::int64_t>(settings.*Field);
}

template <bool CVBRSettings::*Field>
void SetFlag(CVBRSettings& settings, std::int64_t value) {
    settings.*Field = value != 0;
}

std::int64_t GetHotkey(const CVBRSettings& settings) {
    return std::int64_t{settings.HotkeyMods} << 16 | settings.HotkeyVk;
}

void SetHotkey(CVBRSettings& settings, std::int64_t value) {
    settings.HotkeyVk = static_cast<std::uint16_t>(value);
    settings.HotkeyMods = static_cast<std::uint16_t>(value >> 16);
}

void SetDelay(CVBRSettings& settings, std::int64_t value) {
    const auto seconds = static_cast<std::uint32_t>(value);
    settings.DelayAutoLoadSeconds = seconds > 600 ? 600 : seconds;
}

template <bool CVBRSettings::*Field>
constexpr IntegerKey Flag(std::u16string_view name) {
    return {name, GetField<Field>, SetFlag<Field>};
}

constexpr IntegerKey kIntegerKeys[] = {
    {u"Hotkey", GetHotkey, SetHotkey},
    Flag<&CVBRSettings::HotkeyDoubled>(u"Hotkey_Doubled"),
    Flag<&CVBRSettings::WriteLog>(u"WriteLog"),
    {u"DelayAutoLoadSeconds_NextRelease", GetField<&CVBRSettings::DelayAutoLoadSeconds>, SetDelay},
};

bool Counts(const std::optional<std::u16string>& value) {
    return value && !value->empty() && value->size() <= kStringMax;
}

}  // namespace

void CVBRSettings::Load() {
    PhrasesDirectory = GetString(u"PhrasesDirectory", u"");
    for (const IntegerKey& key : kIntegerKeys) {
        key.Set(*this, GetInt(key.Name, key.Get(*this)));
    }
}

std::int64_t CVBRSettings::GetInt(std::u16string_view key, std::int64_t fallback) const {
    for (const std::filesystem::path& file : {files_.Local, files_.User}) {
        if (const auto value = profile_.ReadString(file, kSection, key)) {
            return ParseDecimal(*value);
        }
    }
    return fallback;
}

std::u16string CVBRSettings::GetString(std::u16string_view key,
                                       std::u16string_view fallback) const {
    for (const std::filesystem::path& file : {files_.Local, files_.User}) {
        const auto value = profile_.ReadString(file, kSection, key);
        if (Counts(value)) {
            return *value;
        }
    }
    return std::u16string(fallback);
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <type_traits>

#include "base/file_time.h"
#include "base/text.h"
#include "settings/phrases_folder.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSection = u"Settings";
constexpr std::u16string_view kSectionAgent = u"Settings_Agent";
constexpr std::u16string_view kSectionStamps = u"A_SETTINGS";

constexpr std::u16string_view kKeyVersion = u"VBRVersion";
constexpr std::u16string_view kKeyPhrases = u"PhrasesDirectory";
constexpr std::u16string_view kKeyLanguage = u"Language";
constexpr std::u16string_view kKeyFont = u"FontForMenu";
constexpr std::u16string_view kKeyPaneX = u"FloatPaneRect_TOPLEFT_x";
constexpr std::u16string_view kKeyPaneY = u"FloatPaneRect_TOPLEFT_y";
constexpr std::u16string_view kKeyLastCheckLow = u"LastCheckForUpdates_V2Low";
constexpr std::u16string_view kKeyLastCheckHigh = u"LastCheckForUpdates_V2Hi";
constexpr std::u16string_view kKeySkippedVersion = u"SkippedVersion_OnCheckUpdates";
constexpr std::u16string_view kKeyDelayInsert = u"DelayInsertMilliseconds_v141";
constexpr std::u16string_view kKeyDirectoryForSave = u"DirectoryForSave";
constexpr std::u16string_view kKeyWelcomeStarted = u"Welcome_Already_Started_V2_60";

constexpr std::u16string_view kVersion = u"VBR_150";
constexpr std::size_t kStringMax = 260;
constexpr std::uint32_t kDelayInsertDefault = 400;
constexpr SystemTime kNeverChecked{.Year = 2013, .Month = 1, .DayOfWeek = 2, .Day = 1};

// What a missing key yields: the value in memory, or always the default.
enum class Missing { Kept, Fixed };

// A number outside becomes `Otherwise`; without one, the value in memory stays.
struct Limits {
    std::int64_t Low = std::numeric_limits<std::int64_t>::min();
    std::int64_t High = std::numeric_limits<std::int64_t>::max();
    std::optional<std::int64_t> Otherwise;
};

// A decimal number of 32 bits, signed or unsigned; nothing for any other text.
std::optional<std::int64_t> ParseInt(std::u16string_view text) {
    const std::u16string_view digits =
        text.substr(!text.empty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0);
    if (digits.empty() || digits[0] < u'0' || digits[0] > u'9') {
        return std::nullopt;
    }
    const std::int64_t number = ParseDecimal(text);
    const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                      number <= std::numeric_limits<std::uint32_t>::max();
    return fits ? std::optional(number) : std::nullopt;
}

bool Counts(const std::optional<std::u16string>& value) {
    return value && !value->empty() && value->size() <= kStringMax;
}

std::u16string FileNameOf(std::u16string_view path) {
    return std::u16string(path.substr(path.find_last_of(u"\\/") + 1));
}

}  // namespace

// All keys that Load reads and Save writes, in the order of the file. A key is one line.
struct CVBRSettings::Table {
    using S = CVBRSettings;

    struct Row {
        std::u16string_view Name;
        void (*Reset)(S&, const Row&);
        void (*Load)(S&, const Row&);
        bool (*Save)(S&, const Row&);
        // Rows of numbers only.
        std::int64_t (*Get)(const S&) = nullptr;
        void (*Set)(S&, std::int64_t) = nullptr;
        std::int64_t Default = 0;
        Missing WhenMissing = Missing::Kept;
        Limits Range = {};
    };

    static void ResetNumber(S& settings, const Row& row) { row.Set(settings, row.Default); }

    static void LoadNumber(S& settings, const Row& row) {
        const std::int64_t before = row.Get(settings);
        const bool fixed = row.WhenMissing == Missing::Fixed;
        row.Set(settings, settings.GetInt(row.Name, fixed ? row.Default : before));
        // Only now it has the width of its field.
        const std::int64_t value = row.Get(settings);
        if (value < row.Range.Low || value > row.Range.High) {
            row.Set(settings, row.Range.Otherwise.value_or(before));
        }
    }

    static bool SaveNumber(S& settings, const Row& row) {
        return settings.SetInt(row.Name, row.Get(settings));
    }

    template <auto Field>
    static std::int64_t GetField(const S& settings) {
        return static_cast<std::int64_t>(settings.*Field);
    }
    template <auto Field>
    static void SetField(S& settings, std::int64_t value) {
        auto& field = settings.*Field;
        using Type = std::remove_reference_t<decltype(field)>;
        if constexpr (std::is_same_v<Type, bool>) {
            field = value != 0;
        } else {
            field = static_cast<Type>(value);
        }
    }

    static std::int64_t GetHotkey(const S& settings) {
        return std::int64_t{settings.HotkeyMods} << 16 | settings.HotkeyVk;
    }
    static void SetHotkey(S& settings, std::int64_t value) {
        settings.HotkeyVk = static_cast<std::uint16_t>(value);
        settings.HotkeyMods = static_cast<std::uint16_t>(value >> 16);
    }

    static constexpr Row Integer(std::u16string_view name, std::int64_t (*get)(const S&),
                                 void (*set)(S&, std::int64_t), std::int64_t initial,
                                 Missing missing = Missing::Kept, Limits limits = {}) {
        return {name, ResetNumber, LoadNumber, SaveNumber, get, set, initial, missing, limits};
    }

    template <auto Field>
    static constexpr Row Number(std::u16string_view name, std::int64_t initial,
                                Missing missing = Missing::Kept, Limits limits = {}) {
        return Integer(name, GetField<Field>, SetField<Field>, initial, missing, limits);
    }

    template <std::size_t Index>
    static constexpr Row Format(std::u16string_view name, bool initial) {
        return Integer(
            name, [](const S& s) -> std::int64_t { return s.ClipboardFormats[Index]; },
            [](S& s, std::int64_t value) { s.ClipboardFormats[Index] = value != 0; }, initial);
    }

    template <bool ExtMenuCommands::*Field>
    static constexpr Row Command(std::u16string_view name, bool initial) {
        return Integer(
            name, [](const S& s) -> std::int64_t { return s.ExtMenuCommand.*Field; },
            [](S& s, std::int64_t value) { s.ExtMenuCommand.*Field = value != 0; }, initial);
    }

    static constexpr Row PhrasesRow() {
        return {kKeyPhrases, [](S& s, const Row&) { s.PhrasesDirectory.clear(); },
                [](S& s, const Row&) { s.ReadPhrasesDirectory(); },
                [](S& s, const Row& row) {
                    return s.SetString(
                        row.Name, StoredPhrasesFolder(s.PhrasesDirectory, s.files_.ProgramFolder));
                }};
    }

    static constexpr Row LanguageRow() {
        return {kKeyLanguage, [](S& s, const Row&) { s.SetLanguage(s.system_.Language); },
                [](S& s, const Row&) { s.ReadLanguage(); },
                [](S& s, const Row&) { return s.WriteLanguage(s.Language); }};
    }

    static constexpr Row FontRow() {
        return {kKeyFont, [](S& s, const Row&) { s.FontForMenu = s.system_.MenuFont; },
                [](S& s, const Row& row) {
                    if (const auto text = s.Read(s.files_.Chosen, kSection, row.Name)) {
                        DecodeProfileStruct(*text, s.FontForMenu);
                    }
                },
                [](S& s, const Row& row) {
                    return s.profile_.WriteStruct(s.files_.Chosen, kSection, row.Name,
                                                  s.FontForMenu);
                }};
    }

    static constexpr Row TerminalsRow() {
        return {u"TerminalClasses", [](S& s, const Row&) { s.TerminalClasses.clear(); },
                [](S& s, const Row& row) {
                    s.TerminalClasses = s.GetString(row.Name, s.TerminalClasses);
                },
                [](S& s, const Row& row) { return s.SetString(row.Name, s.TerminalClasses); }};
    }

    static constexpr Row LayoutCommandRow() {
        Row row = Number<&S::InsertEncodeCommandIntoMenu>(u"InsertEncodeCommandIntoMenu", 0);
        row.Reset = [](S& s, const Row&) {
            s.InsertEncodeCommandIntoMenu = s.system_.SeveralKeyboardLayouts;
        };
        return row;
    }

    static const Row kRows[];
};

const CVBRSettings::Table::Row CVBRSettings::Table::kRows[] = {
    PhrasesRow(),
    LanguageRow(),
    Number<&S::ShowHistoryPaneOnStart>(u"ShowHistoryPaneOnStart", 1, Missing::Fixed),
    Integer(u"Hotkey", GetHotkey, SetHotkey, (kModAlt | kModControl) << 16 | 13),
    Number<&S::ExtHotkey>(u"ExtHotkey", 0, Missing::Fixed),
    Number<&S::Hotkey_Doubled>(u"Hotkey_Doubled", 0),
    Number<&S::Sorting>(u"Sorting", 1),
    Number<&S::ClipboardHistory>(u"ClipboardHistory", 1),
    Number<&S::ClipboardHistoryMax>(u"ClipboardHistoryMax", 30),
    Number<&S::InsertCHIntoMenu>(u"InsertCHIntoMenu", 1),
    Number<&S::AutoCheckForUpdates>(u"AutoCheckForUpdates", 1),
    Number<&S::DaysCheckForUpdates>(u"DaysCheckForUpdates", 7),
    Number<&S::SoundOnEvents>(u"SoundOnEventsV094", 1),
    Number<&S::MenuToolTips>(u"MenuToolTips_V0_94_A22", 1),
    Number<&S::DelayAutoLoadSeconds>(u"DelayAutoLoadSeconds_NextRelease", 30, Missing::Kept,
                                     {0, 600, 600}),
    Number<&S::WriteLog>(u"WriteLog", 0),
    Number<&S::SaveClipboardHistory>(u"SaveClipboardHistory_v198", 1, Missing::Fixed),
    Number<&S::MaxHistoryItemsInMenu>(u"MaxHistoryItemsInMenu", 15, Missing::Kept, {.Low = 0}),
    Number<&S::AppendCHAsSubMenu>(u"AppendCHAsSubMenu_ForV140", 0),
    Number<&S::TextPasteMethod>(u"TextPasteMethod_v150", 0, Missing::Kept, {0, 2, 0}),
    Number<&S::GestureType>(u"GestureType", 0, Missing::Fixed, {0, 1, 0}),
    Number<&S::ClipboardSpyMethod>(u"ClipboardSpyMethod_v2_22", -1, Missing::Fixed),
    LayoutCommandRow(),
    Number<&S::AddLastUsedMenuToBegin>(u"AddLastUsedMenuToBegin", 1),
    Number<&S::AddLastUsedMenuToBegin_Count>(u"AddLastUsedMenuToBegin_Count", 3, Missing::Kept,
                                             {1, 5, 3}),
    Number<&S::ShowTrayBallonOnHotkey>(u"ShowTrayBallonOnHotkey", 1),
    Number<&S::PrintLTChars>(u"PrintLTChars", 100, Missing::Fixed, {1, 1000, 100}),
    Format<0>(u"ClipboardFormats0", true),
    Format<1>(u"ClipboardFormats1", true),
    Format<2>(u"ClipboardFormats2", false),
    Format<3>(u"ClipboardFormats3", true),
    Format<4>(u"ClipboardFormats4", true),
    FontRow(),
    Command<&ExtMenuCommands::EditSetting>(u"ExtMenuCommand__EditSetting", true),
    Command<&ExtMenuCommands::SaveSelAsPhrase>(u"ExtMenuCommand__SaveSelAsPhrase", true),
    Command<&ExtMenuCommands::Support>(u"ExtMenuCommand__SUPPORT", true),
    Number<&S::RestoreClipboardAfterPaste>(u"RestoreClipboardAfterPaste", 0),
    TerminalsRow(),
};

CVBRSettings::CVBRSettings(ProfileStore& profile, SettingsFiles files, SystemDefaults system)
    : profile_(profile), files_(std::move(files)), system_(std::move(system)) {
    for (const Table::Row& row : Table::kRows) {
        row.Reset(*this, row);
    }
    const bool isNew = IsVersionUnknown();
    if (!readFailed_) {
        isNewVersion_ = isNew;
    }
}

bool CVBRSettings::Load() {
    const SettingsValues before = *this;
    readFailed_ = false;
    const bool isNew = IsVersionUnknown();
    for (const Table::Row& row : Table::kRows) {
        if (readFailed_) {
            break;
        }
        row.Load(*this, row);
    }
    wasRead_ = !readFailed_;
    if (wasRead_) {
        isNewVersion_ = isNewVersion_.value_or(isNew);
    } else {
        static_cast<SettingsValues&>(*this) = before;
    }
    return wasRead_;
}

bool CVBRSettings::Save() {
    if (!wasRead_) {
        return false;
    }
    bool saved = Write(kSectionStamps, u"WRITED_TO", files_.Chosen.u16string());
    saved &= Write(kSectionStamps, u"WRITED_WHO", files_.ProgramName);
    saved &=
        Write(kSectionStamps, u"WRITED_WHEN", system_.DateAndTime ? system_.DateAndTime() : u"");
    saved &= Write(kSection, kKeyVersion, kVersion);
    for (const Table::Row& row : Table::kRows) {
        saved &= row.Save(*this, row);
    }
    return saved;
}

std::int64_t CVBRSettings::GetInt(std::u16string_view key, std::int64_t fallback) const {
    return FindInt(key).value_or(fallback);
}

std::u16string CVBRSettings::GetString(std::u16string_view key,
                                       std::u16string_view fallback) const {
    for (const std::filesystem::path& file : {files_.Local, files_.User}) {
        const auto value = Read(file, kSection, key);
        if (Counts(value)) {
            return *value;
        }
    }
    return std::u16string(fallback);
}

bool CVBRSettings::SetInt(std::u16string_view key, std::int64_t value) {
    return Write(kSection, key, ToDecimal(value));
}

bool CVBRSettings::SetString(std::u16string_view key, std::u16string_view value) {
    return value.size() <= kStringMax && Write(kSection, key, value);
}

PanePosition CVBRSettings::GetPanePosition(PanePosition fallback) const {
    const auto read = [this](std::u16string_view key, std::int32_t otherwise) {
        const auto value = Read(files_.Chosen, kSectionAgent, key);
        const auto number = value ? ParseInt(*value) : std::nullopt;
        return static_cast<std::int32_t>(number.value_or(otherwise));
    };
    return {read(kKeyPaneX, fallback.X), read(kKeyPaneY, fallback.Y)};
}

void CVBRSettings::SetPanePosition(PanePosition position) {
    Write(kSectionAgent, kKeyPaneX, ToDecimal(position.X));
    Write(kSectionAgent, kKeyPaneY, ToDecimal(position.Y));
}

std::u16string CVBRSettings::GetLanguageFileName() {
    if (const auto value = Read(files_.Chosen, kSection, kKeyLanguage);
        value && value->size() <= kStringMax) {
        SetLanguage(*value);
    }
    return Language.empty() ? Language : files_.ProgramFolder + Language;
}

void CVBRSettings::SetLanguage(std::u16string_view name) {
    Language = FileNameOf(name);
}

bool CVBRSettings::WriteLanguage(std::u16string_view name) {
    return SetString(kKeyLanguage, FileNameOf(name));
}

std::uint32_t CVBRSettings::GetDaysCheckForUpdates() const {
    return std::clamp<std::uint32_t>(DaysCheckForUpdates, 1, 30);
}

std::uint32_t CVBRSettings::GetAddLastUsedMenuToBegin_Count() const {
    return std::clamp<std::uint32_t>(AddLastUsedMenuToBegin_Count, 1, 5);
}

std::int32_t CVBRSettings::GetMaxHistoryItemsInMenu() const {
    return MaxHistoryItemsInMenu == 0 ? -1 : MaxHistoryItemsInMenu;
}

SystemTime CVBRSettings::GetLastCheckForUpdates() {
    readFailed_ = false;
    const auto low = FindInt(kKeyLastCheckLow);
    const auto high = FindInt(kKeyLastCheckHigh);
    if (low && high) {
        const FileTicks ticks =
            FileTicks{static_cast<std::uint32_t>(*high)} << 32 | static_cast<std::uint32_t>(*low);
        if (const auto time = SystemTimeOf(ticks)) {
            return *time;
        }
    }
    if (!readFailed_) {
        SetLastCheckForUpdates(kNeverChecked);
    }
    return kNeverChecked;
}

void CVBRSettings::SetLastCheckForUpdates(const SystemTime& time) {
    if (const auto ticks = FileTicksOf(time)) {
        SetInt(kKeyLastCheckLow, static_cast<std::uint32_t>(*ticks));
        SetInt(kKeyLastCheckHigh, static_cast<std::uint32_t>(*ticks >> 32));
    }
}

std::u16string CVBRSettings::GetSkippedVersion() const {
    return GetString(kKeySkippedVersion, u"");
}

void CVBRSettings::SetSkippedVersion(std::u16string_view versions) {
    SetString(kKeySkippedVersion, versions);
}

std::uint32_t CVBRSettings::GetDelayInsertMilliseconds() {
    readFailed_ = false;
    if (!FindValue(kKeyDelayInsert) && !readFailed_) {
        SetInt(kKeyDelayInsert, kDelayInsertDefault);
    }
    const std::int64_t delay = GetInt(kKeyDelayInsert, kDelayInsertDefault);
    return delay < 0 ? kDelayInsertDefault : static_cast<std::uint32_t>(delay);
}

std::u16string CVBRSettings::GetDirectoryForSave() const {
    return GetString(kKeyDirectoryForSave, u"");
}

void CVBRSettings::SetDirectoryForSave(std::u16string_view folder) {
    SetString(kKeyDirectoryForSave, folder);
}

bool CVBRSettings::IsWelcomeAlreadyStarted() const {
    return GetInt(kKeyWelcomeStarted, 0) != 0;
}

void CVBRSettings::NoteWelcomeStarted() {
    SetInt(kKeyWelcomeStarted, 1);
}

std::optional<std::u16string> CVBRSettings::FindValue(std::u16string_view key) const {
    auto value = Read(files_.Local, kSection, key);
    return value ? value : Read(files_.User, kSection, key);
}

std::optional<std::int64_t> CVBRSettings::FindInt(std::u16string_view key) const {
    const auto value = FindValue(key);
    return value ? ParseInt(*value) : std::nullopt;
}

bool CVBRSettings::IsVersionUnknown() const {
    const auto version = FindValue(kKeyVersion);
    return !version || !EqualsNoCase(*version, kVersion);
}

std::optional<std::u16string> CVBRSettings::Read(const std::filesystem::path& file,
                                                 std::u16string_view section,
                                                 std::u16string_view key) const {
    ProfileValue value = profile_.Read(file, section, key);
    readFailed_ = readFailed_ || value.Result == ProfileRead::Failed;
    return value.Result == ProfileRead::Found ? std::optional(std::move(value.Text)) : std::nullopt;
}

bool CVBRSettings::Write(std::u16string_view section, std::u16string_view key,
                         std::u16string_view value) {
    return profile_.WriteString(files_.Chosen, section, key, value);
}

// A key that stands there without a value chooses the default folder, while a missing one, or one
// too long to be read, leaves the choice in memory.
void CVBRSettings::ReadPhrasesDirectory() {
    const std::u16string value = GetString(kKeyPhrases, u"");
    const std::optional<std::u16string> stored = FindValue(kKeyPhrases);
    if (value.empty() && (!stored || !stored->empty())) {
        return;
    }
    const bool isDefault = StoredPhrasesFolder(value, files_.ProgramFolder).empty();
    PhrasesDirectory = isDefault ? std::u16string() : value;
}

// Likewise an empty value chooses the embedded texts.
void CVBRSettings::ReadLanguage() {
    bool found = false;
    for (const std::filesystem::path& file : {files_.Chosen, files_.Local, files_.User}) {
        const auto value = Read(file, kSection, kKeyLanguage);
        found = found || (value && value->empty());
        if (Counts(value)) {
            SetLanguage(*value);
            return;
        }
    }
    if (found) {
        Language.clear();
    }
}

}  // namespace vbr

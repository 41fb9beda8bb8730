// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"
#include "platform/profile_store.h"

namespace vbr {

// Modifier bits of a hot key, as RegisterHotKey takes them.
inline constexpr std::uint16_t kModAlt = 1;
inline constexpr std::uint16_t kModControl = 2;
inline constexpr std::uint16_t kModShift = 4;
inline constexpr std::uint16_t kModWin = 8;

// The bytes of a font's LOGFONTW.
using FontBytes = std::array<std::uint8_t, 92>;

// Where the settings stand: the file beside the program and the copy in the user's profile.
struct SettingsFiles {
    std::filesystem::path Chosen;  // one of the two: the file that is written
    std::filesystem::path Local;
    std::filesystem::path User;
    std::u16string ProgramFolder;  // with a backslash at its end
    std::u16string ProgramName;    // of the program that writes
};

// What the system says when the program starts, for the keys whose default depends on it.
struct SystemDefaults {
    bool SeveralKeyboardLayouts = false;
    std::u16string Language;  // file name of the user's language, empty when there is none
    FontBytes MenuFont{};
    std::function<std::u16string()> DateAndTime;  // local, in the user's long form
};

// Extra commands of the phrase menu that the user can turn off.
struct ExtMenuCommands {
    bool EditSetting = false;
    bool SaveSelAsPhrase = false;
    bool Support = false;
};

// A position on the screen.
struct PanePosition {
    std::int32_t X = 0;
    std::int32_t Y = 0;

    bool operator==(const PanePosition&) const = default;
};

// The settings that one load reads and one save writes.
struct SettingsValues {
    std::uint32_t DaysCheckForUpdates = 0;
    std::int32_t ClipboardSpyMethod = 0;
    std::u16string PhrasesDirectory;  // as stored: empty for the default, relative or absolute
    bool WriteLog = false;
    bool InsertEncodeCommandIntoMenu = false;
    std::u16string Language;  // file name only, empty for the embedded texts
    std::uint32_t AddLastUsedMenuToBegin_Count = 0;
    ExtMenuCommands ExtMenuCommand;
    bool ShowHistoryPaneOnStart = false;
    std::array<bool, 5> ClipboardFormats{};  // text, RTF, bitmap, Kelp notes, HTML
    std::uint16_t HotkeyVk = 0;
    std::uint16_t HotkeyMods = 0;
    std::uint32_t ExtHotkey = 0;
    bool Hotkey_Doubled = false;
    bool ClipboardHistory = false;
    std::uint32_t ClipboardHistoryMax = 0;
    bool InsertCHIntoMenu = false;
    bool AutoCheckForUpdates = false;
    bool SoundOnEvents = false;
    std::uint32_t DelayAutoLoadSeconds = 0;
    bool MenuToolTips = false;
    bool AddLastUsedMenuToBegin = false;
    bool AppendCHAsSubMenu = false;
    std::int32_t Sorting = 0;
    std::int32_t TextPasteMethod = 0;
    std::uint32_t PrintLTChars = 0;
    bool RestoreClipboardAfterPaste = false;
    std::u16string TerminalClasses;  // window classes, separated by semicolons
    bool ShowTrayBallonOnHotkey = false;
    FontBytes FontForMenu{};
    std::int32_t GestureType = 0;
    bool SaveClipboardHistory = false;
    std::int32_t MaxHistoryItemsInMenu = 0;
};

// The program's settings. Load replaces the values; the main thread does it, other threads read
// single ones.
class CVBRSettings : public SettingsValues {
  public:
    CVBRSettings(ProfileStore& profile, SettingsFiles files, SystemDefaults system = {});
    virtual ~CVBRSettings() = default;

    // Whether no program of this settings format had saved here when the files were first read;
    // false as long as they can't be.
    virtual bool IsNewVersion() const { return isNewVersion_.value_or(false); }

    // Reads all keys. A missing key keeps the value in memory, or gets its default when that is
    // fixed; one out of its limits is corrected. False when a file can't be read: all values are
    // then as before.
    bool Load();
    // Whether the last load could read the files, a missing one included.
    bool WasRead() const { return wasRead_; }
    // Writes all keys and who wrote them when to the chosen file. False when a key can't be
    // written; nothing is while the files weren't read, whose values would get lost.
    bool Save();

    // A key of the section "Settings": from the local file when it stands there, else from the user
    // copy. A number that can't be read gives the fallback. A string value counts when it has 1 to
    // 260 characters, and a longer one is not written. False when a value can't be written.
    std::int64_t GetInt(std::u16string_view key, std::int64_t fallback) const;
    std::u16string GetString(std::u16string_view key, std::u16string_view fallback) const;
    bool SetInt(std::u16string_view key, std::int64_t value);
    bool SetString(std::u16string_view key, std::u16string_view value);

    // The pane's top left corner in the chosen file; a missing number is that of `fallback`.
    PanePosition GetPanePosition(PanePosition fallback) const;
    void SetPanePosition(PanePosition position);

    // Path of the language file, empty for the embedded texts. It reads the key again, so that
    // another program's choice takes effect.
    std::u16string GetLanguageFileName();
    // Takes a name, or the name out of a path, in memory alone.
    void SetLanguage(std::u16string_view name);
    // Writes the key alone.
    bool WriteLanguage(std::u16string_view name);

    std::uint32_t GetDaysCheckForUpdates() const;           // 1 to 30
    std::uint32_t GetAddLastUsedMenuToBegin_Count() const;  // 1 to 5
    std::int32_t GetMaxHistoryItemsInMenu() const;          // -1 for no limit
    bool IsDefaultPhrasesFolder() const { return PhrasesDirectory.empty(); }

    // UTC. While there is no date, a fixed one is given and, if the files can be read, written.
    SystemTime GetLastCheckForUpdates();
    void SetLastCheckForUpdates(const SystemTime& time);
    // Numbers joined by commas.
    std::u16string GetSkippedVersion() const;
    void SetSkippedVersion(std::u16string_view versions);
    // Writes the default while there is no value, if the files can be read.
    std::uint32_t GetDelayInsertMilliseconds();
    std::u16string GetDirectoryForSave() const;
    void SetDirectoryForSave(std::u16string_view folder);
    bool IsWelcomeAlreadyStarted() const;
    void NoteWelcomeStarted();

    const SettingsFiles& Files() const { return files_; }

  private:
    struct Table;

    // Notes when the file can't be read.
    std::optional<std::u16string> Read(const std::filesystem::path& file,
                                       std::u16string_view section, std::u16string_view key) const;
    // The value of the first of the two files that has the key.
    std::optional<std::u16string> FindValue(std::u16string_view key) const;
    std::optional<std::int64_t> FindInt(std::u16string_view key) const;
    bool IsVersionUnknown() const;
    bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    void ReadPhrasesDirectory();
    void ReadLanguage();

    ProfileStore& profile_;
    SettingsFiles files_;
    SystemDefaults system_;
    std::optional<bool> isNewVersion_;
    bool wasRead_ = false;
    mutable bool readFailed_ = false;  // since it was last cleared
};

}  // namespace vbr

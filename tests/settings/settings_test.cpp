// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include <gtest/gtest.h>
#include <sstream>

#include "base/text.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

// What a first save writes. Users have such files: a key that changes its name loses its value.
const std::string kDefaults =
    "VBRVersion=VBR_150\r\nPhrasesDirectory=\r\nLanguage=Default.lng\r\n"
    "ShowHistoryPaneOnStart=1\r\nHotkey=196621\r\nExtHotkey=0\r\nHotkey_Doubled=0\r\n"
    "Sorting=1\r\nClipboardHistory=1\r\nClipboardHistoryMax=30\r\nInsertCHIntoMenu=1\r\n"
    "AutoCheckForUpdates=1\r\nDaysCheckForUpdates=7\r\nSoundOnEventsV094=1\r\n"
    "MenuToolTips_V0_94_A22=1\r\nDelayAutoLoadSeconds_NextRelease=30\r\nWriteLog=0\r\n"
    "SaveClipboardHistory_v198=1\r\nMaxHistoryItemsInMenu=15\r\nAppendCHAsSubMenu_ForV140=0\r\n"
    "TextPasteMethod_v150=0\r\nGestureType=0\r\nClipboardSpyMethod_v2_22=-1\r\n"
    "InsertEncodeCommandIntoMenu=1\r\nAddLastUsedMenuToBegin=1\r\n"
    "AddLastUsedMenuToBegin_Count=3\r\nShowTrayBallonOnHotkey=1\r\nPrintLTChars=100\r\n"
    "ClipboardFormats0=1\r\nClipboardFormats1=1\r\nClipboardFormats2=0\r\n"
    "ClipboardFormats3=1\r\nClipboardFormats4=1\r\n"
    "FontForMenu=F4" +
    std::string(180, '0') +
    "01F5\r\nExtMenuCommand__EditSetting=1\r\nExtMenuCommand__SaveSelAsPhrase=1\r\n"
    "ExtMenuCommand__SUPPORT=1\r\nRestoreClipboardAfterPaste=0\r\n"
    "TerminalClasses=\r\n";

// A first start: the file beside the program, which may be written, and no user copy.
class SettingsTest : public testing::Test {
  protected:
    CVBRSettings Make(bool userCopyChosen = false) {
        SystemDefaults system;
        system.SeveralKeyboardLayouts = true;
        system.Language = u"Default.lng";
        system.MenuFont[0] = 0xF4;
        system.MenuFont[91] = 0x01;
        system.DateAndTime = [] { return u"Sunday"; };
        const auto& chosen = userCopyChosen ? user_ : local_;
        return {profile_, {chosen, local_, user_, u"C:\\App\\", u"Vellumbridge.exe"}, system};
    }
    CVBRSettings Loaded(bool userCopyChosen = false) {
        CVBRSettings settings = Make(userCopyChosen);
        settings.Load();
        return settings;
    }
    // The whole file with these lines in its main section.
    std::string WithStamps(const std::string& lines) const {
        return "[A_SETTINGS]\r\nWRITED_TO=" + Utf16ToUtf8(local_.u16string()) +
               "\r\nWRITED_WHO=Vellumbridge.exe\r\nWRITED_WHEN=Sunday\r\n[Settings]\r\n" + lines;
    }
    void WriteLocal(const std::string& lines) {
        folder_.Write(local_.filename(), "[Settings]\r\n" + lines);
    }
    void WriteUser(const std::string& lines) {
        folder_.Write(user_.filename(), "[Settings]\r\n" + lines);
    }
    std::u16string Stored(std::u16string_view key) {
        return profile_.ReadString(local_, u"Settings", key).value_or(u"(missing)");
    }
    TempFolder folder_;
    NativeProfileStore profile_;
    std::filesystem::path local_ = folder_.Path() / "local.ini";
    std::filesystem::path user_ = folder_.Path() / "user.ini";
};

TEST_F(SettingsTest, AFirstSaveWritesStampsVersionAndTheDefaultOfEveryKey) {
    folder_.Write("local.ini", "\xEF\xBB\xBF");
    EXPECT_TRUE(Loaded().Save());
    EXPECT_EQ(folder_.Read("local.ini"), "\xEF\xBB\xBF" + WithStamps(kDefaults));
}

TEST_F(SettingsTest, AFileOfAnyNumbersIsTheSameAfterLoadAndSave) {
    // Two keys that share a field would agree in a round in which both or none of them changes.
    for (std::size_t bit = 1; bit < 64; bit *= 2) {
        std::istringstream defaults(kDefaults);
        std::string lines;
        std::string key;
        std::string value;
        for (std::size_t i = 1; std::getline(defaults, key, '=') && std::getline(defaults, value);
             ++i) {
            if ((i & bit) != 0 && value.find_first_of("-0123456789") == 0) {
                const int number = std::stoi(value);
                value = std::to_string(number == 1 ? 0 : number + 1) + "\r";
            }
            lines += key + "=" + value + "\n";
        }
        folder_.Write("local.ini", WithStamps(lines));
        Loaded().Save();
        EXPECT_EQ(folder_.Read("local.ini"), WithStamps(lines));
    }
}

TEST_F(SettingsTest, NumbersThatCannotBeAreCorrectedInTheFileByTheNextSave) {
    const std::tuple<std::u16string, std::u16string, std::u16string> cases[] = {
        {u"PrintLTChars", u"0", u"100"},
        {u"AddLastUsedMenuToBegin_Count", u"6", u"3"},
        {u"DelayAutoLoadSeconds_NextRelease", u"-1", u"600"},
        {u"TextPasteMethod_v150", u"3", u"0"},
        {u"MaxHistoryItemsInMenu", u"-5", u"15"},
        {u"ClipboardSpyMethod_v2_22", u"4294967295", u"-1"},
        {u"ExtHotkey", u"4294967295", u"4294967295"},
        {u"WriteLog", u"-7", u"1"},
        {u"DaysCheckForUpdates", u"soon", u"7"},
        {u"DaysCheckForUpdates", u"18446744073709551617", u"7"},
        {u"DaysCheckForUpdates", u"+12 days", u"12"}};
    for (const auto& [key, stored, saved] : cases) {
        const std::string line = Utf16ToUtf8(Concat(key, u"=", stored, u"\r\n"));
        WriteLocal(line);
        CVBRSettings settings = Loaded();
        EXPECT_EQ(Stored(key), stored) << line;
        settings.Save();
        EXPECT_EQ(Stored(key), saved) << line;
    }
    CVBRSettings settings = Make();
    settings.DaysCheckForUpdates = 45;
    settings.AddLastUsedMenuToBegin_Count = settings.MaxHistoryItemsInMenu = 0;
    EXPECT_EQ(settings.GetDaysCheckForUpdates(), 30u);
    EXPECT_EQ(settings.GetAddLastUsedMenuToBegin_Count(), 1u);
    EXPECT_EQ(settings.GetMaxHistoryItemsInMenu(), -1);
}

TEST_F(SettingsTest, AKeyThatGoesAwayKeepsItsValueUnlessItsDefaultIsFixed) {
    WriteLocal("ClipboardHistoryMax=7\r\nPhrasesDirectory=Mine\r\nPrintLTChars=50\r\n");
    CVBRSettings settings = Loaded();
    settings.FontForMenu[5] = 5;
    WriteLocal("");
    settings.Load();
    EXPECT_EQ(settings.ClipboardHistoryMax, 7u);
    EXPECT_EQ(settings.PhrasesDirectory, u"Mine");
    EXPECT_EQ(settings.FontForMenu[5], 5);
    EXPECT_EQ(settings.PrintLTChars, 100u);
}

TEST_F(SettingsTest, TheLocalFileComesBeforeTheUserCopyKeyByKeyAndTheChosenOneIsWritten) {
    const std::string tooLong(261, 'x');
    WriteLocal("WriteLog=0\r\nPhrasesDirectory=Local\r\nSorting=\r\nText=" + tooLong + "\r\n");
    WriteUser("WriteLog=1\r\nPhrasesDirectory=User\r\nHotkey_Doubled=1\r\nSorting=5\r\nText=t\r\n");
    const std::string local = folder_.Read("local.ini");
    for (const bool userCopyChosen : {false, true}) {
        const CVBRSettings settings = Loaded(userCopyChosen);
        EXPECT_FALSE(settings.WriteLog);
        EXPECT_EQ(settings.PhrasesDirectory, u"Local");
        EXPECT_TRUE(settings.Hotkey_Doubled);
        EXPECT_EQ(settings.Sorting, 1);
        EXPECT_EQ(settings.GetString(u"Text", u"default"), u"t");
    }
    CVBRSettings settings = Make(true);
    settings.SetInt(u"Text", -3);
    settings.SetString(u"Text", Utf8ToUtf16(tooLong));
    EXPECT_EQ(settings.GetString(u"Text", u"default"), u"-3");
    settings.SetPanePosition({4, -5});
    EXPECT_EQ(settings.GetPanePosition({7, 8}), (PanePosition{4, -5}));
    EXPECT_EQ(Make().GetPanePosition({7, 8}), (PanePosition{7, 8}));
    EXPECT_EQ(folder_.Read("local.ini"), local);
}

TEST_F(SettingsTest, AFileHeldAtAnyMomentOfLoadingChangesNothingUntilItIsRead) {
    WriteLocal("VBRVersion=VBR_150\r\nHotkey=131109\r\nSaveClipboardHistory_v198=0\r\n");
    WriteUser("ClipboardHistoryMax=7\r\n");
    const std::string local = folder_.Read("local.ini");
    CVBRSettings settings = Make();
    settings.PrintLTChars = 50;
    EXPECT_FALSE(settings.Save());
    int reads = 0;
    int free = 0;
    profile_.IsHeld = [&](const auto&) { return reads++ == free; };
    for (; !settings.Load(); reads = 0, ++free) {
        ASSERT_GT(reads, free);
        EXPECT_EQ(settings.HotkeyVk, 13);
        EXPECT_TRUE(settings.SaveClipboardHistory);
        EXPECT_EQ(settings.ClipboardHistoryMax, 30u);
        EXPECT_EQ(settings.PrintLTChars, 50u);
        EXPECT_FALSE(settings.Save());
        ASSERT_EQ(folder_.Read("local.ini"), local);
    }
    EXPECT_EQ(reads, free);
    EXPECT_GT(free, 60);  // nearly all keys, in both files
    EXPECT_EQ(settings.HotkeyVk, 0x25);
    profile_.IsHeld = [](const auto&) { return false; };
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(Stored(u"SaveClipboardHistory_v198"), u"0");
    EXPECT_EQ(Stored(u"ClipboardHistoryMax"), u"7");
    // What was read once does not go over what may have come since.
    reads = free = 0;
    profile_.IsHeld = [&](const auto&) { return reads++ == 0; };
    EXPECT_FALSE(settings.Load());
    EXPECT_FALSE(settings.Save());
}

TEST_F(SettingsTest, WhatAHeldFileMaySayIsNotTakenForMissing) {
    for (const std::filesystem::path& held : {local_, user_}) {
        WriteLocal("");
        WriteUser("VBRVersion=VBR_149\r\n");
        const std::string local = folder_.Read("local.ini");
        profile_.IsHeld = [&](const auto& file) { return file == held; };
        CVBRSettings settings = Make();
        EXPECT_FALSE(settings.Load());
        EXPECT_FALSE(settings.IsNewVersion());
        EXPECT_EQ(settings.GetDelayInsertMilliseconds(), 400u);
        EXPECT_EQ(settings.GetLastCheckForUpdates().Year, 2013);
        profile_.IsHeld = [](const auto&) { return false; };
        EXPECT_EQ(folder_.Read("local.ini"), local);
        EXPECT_TRUE(settings.Load());
        EXPECT_TRUE(settings.IsNewVersion());
    }
}

TEST_F(SettingsTest, ASaveThatCannotWriteAKeySaysSo) {
    CVBRSettings settings = Loaded();
    int writes = 0;
    profile_.IsHeld = [&](const auto&) { return writes++ == 20; };
    EXPECT_FALSE(settings.Save());
    EXPECT_TRUE(settings.Save());
}

TEST_F(SettingsTest, AFolderInTheFilesPlaceLeavesTheDefaultsAndIsKept) {
    folder_.Write("local.ini/inner.txt", "x");
    CVBRSettings settings = Loaded();
    EXPECT_FALSE(settings.Save());
    EXPECT_EQ(settings.ClipboardHistoryMax, 30u);
    EXPECT_EQ(folder_.Read("local.ini/inner.txt"), "x");
}

TEST_F(SettingsTest, AVersionStampOfThisFormatIsNotNew) {
    for (const auto& [version, isNew] :
         {std::pair{"VBRVersion=VBR_149\r\n", true}, {"VBRVersion=vbr_150\r\n", false}}) {
        WriteLocal(version);
        CVBRSettings settings = Loaded();
        settings.Save();
        EXPECT_EQ(settings.IsNewVersion(), isNew) << version;
    }
    EXPECT_FALSE(Make().IsNewVersion());
}

TEST_F(SettingsTest, ThePhrasesFolderIsKeptRelativeToTheProgram) {
    const std::tuple<std::string, std::u16string, std::u16string> cases[] = {
        {"", u"", u""},
        {"c:\\app\\Mine\\Sub\\", u"c:\\app\\Mine\\Sub\\", u"Mine\\Sub"},
        {"C:\\App\\", u"C:\\App\\", u"C:\\App"},
        {"C:\\Apple\\Mine\\", u"C:\\Apple\\Mine\\", u"C:\\Apple\\Mine"}};
    for (const auto& [value, inMemory, saved] : cases) {
        WriteLocal("PhrasesDirectory=" + value + "\r\n");
        CVBRSettings settings = Make();
        settings.PhrasesDirectory = u"before";
        settings.Load();
        EXPECT_EQ(settings.PhrasesDirectory, inMemory) << value;
        settings.Save();
        EXPECT_EQ(Stored(u"PhrasesDirectory"), saved) << value;
    }
}

TEST_F(SettingsTest, TheLanguageComesFromTheChosenFileFirst) {
    const std::tuple<std::string, std::string, std::u16string> cases[] = {
        {"Language=Local.lng\r\n", "Language=User.lng\r\n", u"User.lng"},
        {"Language=Local.lng\r\n", "Language=\r\n", u"Local.lng"},
        {"Language=\r\n", "", u""},
        {"", "", u"Default.lng"},
        {"Language=" + std::string(261, 'x') + "\r\n", "", u"Default.lng"},
        {"Language=C:\\Else\\Local.lng\r\n", "", u"Local.lng"}};
    for (const auto& [local, user, language] : cases) {
        WriteLocal(local);
        WriteUser(user);
        EXPECT_EQ(Loaded(true).Language, language) << local << user;
    }
}

TEST_F(SettingsTest, ALanguagePickedByAnotherProgramTakesEffect) {
    CVBRSettings settings = Make();
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Default.lng");
    Make().WriteLanguage(u"D:\\Other\\Picked.lng");
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Picked.lng");
    WriteLocal("Language=\r\n");
    EXPECT_EQ(settings.GetLanguageFileName(), u"");
    settings.SetLanguage(u"C:/App/Set.lng");
    WriteLocal("");
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Set.lng");
}

TEST_F(SettingsTest, AnUnreadableLastCheckBecomesAFixedDateForGood) {
    const SystemTime time{2024, 5, 0, 5, 10, 20, 30, 400};
    Make().SetLastCheckForUpdates(time);
    Make().SetLastCheckForUpdates({2024, 13, 0, 5, 0, 0, 0, 0});
    EXPECT_EQ(Make().GetLastCheckForUpdates(), time);
    for (const char* lines :
         {"", "LastCheckForUpdates_V2Low=5\r\n",
          "LastCheckForUpdates_V2Low=x\r\nLastCheckForUpdates_V2Hi=y\r\n",
          "LastCheckForUpdates_V2Low=0\r\nLastCheckForUpdates_V2Hi=4294967295\r\n"}) {
        WriteLocal(lines);
        EXPECT_EQ(Make().GetLastCheckForUpdates(), (SystemTime{2013, 1, 2, 1, 0, 0, 0, 0}));
        EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Hi"), u"30271410") << lines;
        EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Low"), u"4046192640") << lines;
    }
}

TEST_F(SettingsTest, TheInsertDelayIsWrittenWhenItIsFirstAskedFor) {
    EXPECT_EQ(Make().GetDelayInsertMilliseconds(), 400u);
    EXPECT_EQ(Stored(u"DelayInsertMilliseconds_v141"), u"400");
    for (const auto& [stored, delay] : {std::pair{"250", 250u}, {"-1", 400u}, {"soon", 400u}}) {
        WriteLocal(std::string("DelayInsertMilliseconds_v141=") + stored + "\r\n");
        EXPECT_EQ(Make().GetDelayInsertMilliseconds(), delay) << stored;
        EXPECT_EQ(Utf16ToUtf8(Stored(u"DelayInsertMilliseconds_v141")), stored);
    }
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "base/text.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

constexpr std::u16string_view kProgramFolder = u"C:\\App\\";

// A first start: the file beside the program, which may be written, and no user copy.
class SettingsTest : public testing::Test {
  protected:
    // The text of a file that the settings made: Unicode with its mark.
    std::string NewFile(const std::string& name) const {
        const std::string bytes = folder_.Read(name);
        if (!bytes.starts_with("\xFF\xFE")) {
            ADD_FAILURE() << name << " has no mark";
            return {};
        }
        const auto* units = reinterpret_cast<const char16_t*>(bytes.data());
        return Utf16ToUtf8({units + 1, bytes.size() / 2 - 1});
    }

    CVBRSettings Make(bool userCopyChosen = false) {
        SystemDefaults system;
        system.SeveralKeyboardLayouts = true;
        system.Language = u"Default.lng";
        system.MenuFont[0] = 0xF4;
        system.MenuFont[91] = 0x01;
        system.DateAndTime = [] { return u"Sunday, 5 May 2024 10:20:30"; };
        const auto& chosen = userCopyChosen ? user_ : local_;
        return {profile_,
                {chosen, local_, user_, std::u16string(kProgramFolder), u"Vellumbridge.exe"},
                system};
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

TEST_F(SettingsTest, SaveWritesStampsVersionAndAllKeysInTheirOrder) {
    folder_.Write("local.ini", "");
    CVBRSettings settings = Make();
    settings.Load();
    settings.Save();
    const std::string expected =
        "[A_SETTINGS]\r\nWRITED_TO=" + Utf16ToUtf8(local_.u16string()) +
        "\r\nWRITED_WHO=Vellumbridge.exe\r\n"
        "WRITED_WHEN=Sunday, 5 May 2024 10:20:30\r\n"
        "[Settings]\r\nVBRVersion=VBR_150\r\nPhrasesDirectory=\r\nLanguage=Default.lng\r\n"
        "ShowHistoryPaneOnStart=1\r\nHotkey=196621\r\nExtHotkey=0\r\nHotkey_Doubled=0\r\n"
        "Sorting=1\r\nClipboardHistory=1\r\nClipboardHistoryMax=30\r\nInsertCHIntoMenu=1\r\n"
        "AutoCheckForUpdates=1\r\nDaysCheckForUpdates=7\r\nSoundOnEventsV094=1\r\n"
        "MenuToolTips_V0_94_A22=1\r\nDelayAutoLoadSeconds_NextRelease=30\r\nWriteLog=0\r\n"
        "SaveClipboardHistory_v198=1\r\nMaxHistoryItemsInMenu=15\r\n"
        "AppendCHAsSubMenu_ForV140=0\r\nTextPasteMethod_v150=0\r\nGestureType=0\r\n"
        "ClipboardSpyMethod_v2_22=-1\r\nInsertEncodeCommandIntoMenu=1\r\n"
        "AddLastUsedMenuToBegin=1\r\nAddLastUsedMenuToBegin_Count=3\r\n"
        "ShowTrayBallonOnHotkey=1\r\nPrintLTChars=100\r\nClipboardFormats0=1\r\n"
        "ClipboardFormats1=1\r\nClipboardFormats2=0\r\nClipboardFormats3=1\r\n"
        "ClipboardFormats4=1\r\nFontForMenu=F4" +
        std::string(180, '0') +
        "01F5\r\nExtMenuCommand__EditSetting=1\r\n"
        "ExtMenuCommand__SaveSelAsPhrase=1\r\nExtMenuCommand__SUPPORT=1\r\n";
    EXPECT_EQ(NewFile("local.ini"), expected);
}

TEST_F(SettingsTest, EveryFieldReadsAndWritesItsOwnKey) {
    Make().Save();
    // Each number of a default file, changed to another one.
    std::vector<std::pair<std::u16string, std::u16string>> changed;
    std::istringstream file(NewFile("local.ini"));
    for (std::string line; std::getline(file, line, '\n');) {
        const std::size_t value = line.find('=') + 1;
        if (value > 0 && line.find_first_not_of("-0123456789\r", value) == line.npos &&
            line[value] != '\r') {
            const std::int64_t number = ParseDecimal(std::string_view(line).substr(value));
            changed.emplace_back(Utf8ToUtf16(line.substr(0, value - 1)),
                                 ToDecimal(number == 1 ? 0 : number + 1));
        }
    }
    ASSERT_GT(changed.size(), 30u);
    // Two keys that share a field would agree in a round in which only one of them is changed.
    for (std::size_t bit = 1; bit < changed.size(); bit *= 2) {
        std::string lines;
        for (std::size_t i = 0; i < changed.size(); ++i) {
            const auto& [key, value] = changed[i];
            lines += (i & bit) ? Utf16ToUtf8(Concat(key, u"=", value, u"\r\n")) : "";
        }
        WriteLocal(lines);
        CVBRSettings settings = Make();
        settings.Load();
        settings.Save();
        for (std::size_t i = 0; i < changed.size(); ++i) {
            const auto& [key, value] = changed[i];
            EXPECT_EQ(Stored(key) == value, (i & bit) != 0) << Utf16ToUtf8(key);
        }
    }
}

TEST_F(SettingsTest, NumbersOutOfTheirLimitsAreCorrectedInTheFileByTheNextSave) {
    const std::tuple<std::u16string, std::u16string, std::u16string> cases[] = {
        {u"PrintLTChars", u"0", u"100"},
        {u"PrintLTChars", u"1", u"1"},
        {u"PrintLTChars", u"1000", u"1000"},
        {u"PrintLTChars", u"1001", u"100"},
        {u"AddLastUsedMenuToBegin_Count", u"0", u"3"},
        {u"AddLastUsedMenuToBegin_Count", u"5", u"5"},
        {u"AddLastUsedMenuToBegin_Count", u"6", u"3"},
        {u"DelayAutoLoadSeconds_NextRelease", u"0", u"0"},
        {u"DelayAutoLoadSeconds_NextRelease", u"600", u"600"},
        {u"DelayAutoLoadSeconds_NextRelease", u"601", u"600"},
        {u"DelayAutoLoadSeconds_NextRelease", u"-1", u"600"},
        {u"TextPasteMethod_v150", u"2", u"2"},
        {u"TextPasteMethod_v150", u"3", u"0"},
        {u"TextPasteMethod_v150", u"-1", u"0"},
        {u"GestureType", u"1", u"1"},
        {u"GestureType", u"2", u"0"},
        {u"MaxHistoryItemsInMenu", u"0", u"0"},
        {u"MaxHistoryItemsInMenu", u"-5", u"15"},
        {u"DaysCheckForUpdates", u"0", u"0"},
        {u"DaysCheckForUpdates", u"45", u"45"},
        {u"ClipboardSpyMethod_v2_22", u"4294967295", u"-1"},
        {u"ExtHotkey", u"4294967295", u"4294967295"},
        {u"WriteLog", u"-7", u"1"}};
    for (const auto& [key, stored, saved] : cases) {
        const std::string line = Utf16ToUtf8(Concat(key, u"=", stored, u"\r\n"));
        WriteLocal(line);
        CVBRSettings settings = Make();
        settings.Load();
        EXPECT_EQ(Stored(key), stored) << line;
        settings.Save();
        EXPECT_EQ(Stored(key), saved) << line;
    }
}

TEST_F(SettingsTest, ATextThatIsNoNumberLeavesTheDefault) {
    const CVBRSettings settings = Make();
    for (const char* value :
         {"", "x", "-", "+", "-x", "99999999999", "-99999999999", "\xE9", "18446744073709551617"}) {
        WriteLocal(std::string("key=") + value + "\r\n");
        EXPECT_EQ(settings.GetInt(u"key", 30), 30) << value;
    }
    WriteLocal("key=+12 items\r\n");
    EXPECT_EQ(settings.GetInt(u"key", 30), 12);
}

TEST_F(SettingsTest, CountsAreGivenWithinTheirBounds) {
    CVBRSettings settings = Make();
    for (const auto& [stored, days, count, items] :
         {std::tuple{0, 1u, 1u, -1}, {4, 4u, 4u, 4}, {45, 30u, 5u, 45}}) {
        settings.DaysCheckForUpdates = static_cast<std::uint32_t>(stored);
        settings.AddLastUsedMenuToBegin_Count = static_cast<std::uint32_t>(stored);
        settings.MaxHistoryItemsInMenu = stored;
        EXPECT_EQ(settings.GetDaysCheckForUpdates(), days);
        EXPECT_EQ(settings.GetAddLastUsedMenuToBegin_Count(), count);
        EXPECT_EQ(settings.GetMaxHistoryItemsInMenu(), items);
    }
}

TEST_F(SettingsTest, AKeyThatGoesAwayKeepsItsValueUnlessItsDefaultIsFixed) {
    WriteLocal("ClipboardHistoryMax=7\r\nPhrasesDirectory=Mine\r\nPrintLTChars=50\r\n");
    CVBRSettings settings = Make();
    settings.Load();
    settings.FontForMenu[5] = 5;
    WriteLocal("");
    settings.Load();
    EXPECT_EQ(settings.ClipboardHistoryMax, 7u);
    EXPECT_EQ(settings.PhrasesDirectory, u"Mine");
    EXPECT_EQ(settings.FontForMenu[5], 5);
    EXPECT_EQ(settings.PrintLTChars, 100u);
}

TEST_F(SettingsTest, TheLocalFileComesBeforeTheUserCopyKeyByKey) {
    WriteLocal("WriteLog=0\r\nPhrasesDirectory=Local\r\nSorting=\r\n");
    WriteUser("WriteLog=1\r\nPhrasesDirectory=User\r\nHotkey_Doubled=1\r\nSorting=5\r\n");
    for (const bool userCopyChosen : {false, true}) {
        CVBRSettings settings = Make(userCopyChosen);
        settings.Load();
        EXPECT_FALSE(settings.WriteLog);
        EXPECT_EQ(settings.PhrasesDirectory, u"Local");
        EXPECT_TRUE(settings.Hotkey_Doubled);
        EXPECT_EQ(settings.Sorting, 1);
    }
}

TEST_F(SettingsTest, AStringThatIsEmptyOrTooLongFallsBack) {
    const CVBRSettings settings = Make();
    const std::string longest(260, 'x');
    for (const std::string& bad : {std::string(), longest + "x"}) {
        WriteLocal("key=" + bad + "\r\n");
        WriteUser("key=" + longest + "\r\n");
        EXPECT_EQ(settings.GetString(u"key", u"default"), Utf8ToUtf16(longest));
        WriteUser("key=" + bad + "\r\n");
        EXPECT_EQ(settings.GetString(u"key", u"default"), u"default");
    }
}

TEST_F(SettingsTest, WritesGoToTheChosenFileAlone) {
    WriteLocal("Sorting=1\r\n");
    const std::string local = folder_.Read("local.ini");
    CVBRSettings settings = Make(true);
    settings.SetInt(u"One", -3);
    settings.SetString(u"Two", u"text");
    settings.SetString(u"Two", std::u16string(261, u'x'));
    settings.SetPanePosition({4, -5});
    EXPECT_EQ(folder_.Read("local.ini"), local);
    EXPECT_EQ(NewFile("user.ini"),
              "[Settings]\r\nOne=-3\r\nTwo=text\r\n"
              "[Settings_Agent]\r\nFloatPaneRect_TOPLEFT_x=4\r\nFloatPaneRect_TOPLEFT_y=-5\r\n");
}

TEST_F(SettingsTest, ASaveKeepsWhatIsNotItsOwn) {
    folder_.Write("local.ini",
                  "; mine\r\n[Other]\r\nKey=1\r\n\r\n[settings]\r\n; hot\r\nhotkey = 5\r\n"
                  "Future_Key=x\r\nDirectoryForSave=C:\\\r\n");
    CVBRSettings settings = Make();
    settings.Load();
    settings.Save();
    EXPECT_TRUE(folder_.Read("local.ini")
                    .starts_with("; mine\r\n[Other]\r\nKey=1\r\n\r\n[settings]\r\n; hot\r\n"
                                 "hotkey =5\r\nFuture_Key=x\r\nDirectoryForSave=C:\\\r\n"
                                 "VBRVersion=VBR_150\r\n"));
}

TEST_F(SettingsTest, AFileThatCannotBeReadOrWrittenLeavesTheDefaults) {
    Make().Save();
    const std::string defaults = folder_.Read("local.ini");
    std::filesystem::remove(local_);
    folder_.Write("local.ini/inner.txt", "x");
    CVBRSettings settings = Make();
    settings.Load();
    settings.Save();
    EXPECT_EQ(folder_.Read("local.ini/inner.txt"), "x");
    std::filesystem::remove_all(local_);
    settings.Save();
    EXPECT_EQ(folder_.Read("local.ini"), defaults);
}

TEST_F(SettingsTest, AVersionStampOfThisFormatIsNotNew) {
    EXPECT_TRUE(Make().IsNewVersion());
    for (const auto& [local, user, isNew] :
         {std::tuple{"", "", true},
          {"VBRVersion=vbr_150\r\n", "", false},
          {"", "VBRVersion=VBR_150\r\n", false},
          {"VBRVersion=VBR_149\r\n", "VBRVersion=VBR_150\r\n", true}}) {
        WriteLocal(local);
        WriteUser(user);
        CVBRSettings settings = Make();
        EXPECT_EQ(settings.IsNewVersion(), isNew) << local << user;
        settings.Save();
        EXPECT_EQ(settings.IsNewVersion(), isNew);
        EXPECT_FALSE(Make().IsNewVersion());
    }
}

TEST_F(SettingsTest, ThePhrasesFolderIsKeptRelativeToTheProgram) {
    const struct {
        std::string Value;
        std::u16string InMemory;
        std::u16string Saved;
    } cases[] = {{"", u"", u""},
                 {"C:\\App\\UserPhrases\\", u"", u""},
                 {"c:\\app\\userphrases", u"", u""},
                 {"UserPhrases", u"", u""},
                 {"C:\\App\\Mine\\", u"C:\\App\\Mine\\", u"Mine"},
                 {"c:\\app\\Mine\\Sub", u"c:\\app\\Mine\\Sub", u"Mine\\Sub"},
                 {"C:\\App\\", u"C:\\App\\", u"C:\\App"},
                 {"C:\\Apple\\Mine\\", u"C:\\Apple\\Mine\\", u"C:\\Apple\\Mine"},
                 {"D:\\", u"D:\\", u"D:"}};
    for (const auto& c : cases) {
        WriteLocal("PhrasesDirectory=" + c.Value + "\r\n");
        CVBRSettings settings = Make();
        settings.PhrasesDirectory = u"before";
        settings.Load();
        EXPECT_EQ(settings.PhrasesDirectory, c.InMemory) << c.Value;
        EXPECT_EQ(settings.IsDefaultPhrasesFolder(), c.InMemory.empty());
        settings.Save();
        EXPECT_EQ(Stored(u"PhrasesDirectory"), c.Saved) << c.Value;
    }
}

TEST_F(SettingsTest, TheLanguageComesFromTheChosenFileFirst) {
    const std::string tooLong(261, 'x');
    const std::tuple<std::string, std::string, std::u16string> cases[] = {
        {"Language=Local.lng\r\n", "Language=User.lng\r\n", u"User.lng"},
        {"Language=Local.lng\r\n", "Language=\r\n", u"Local.lng"},
        {"Language=Local.lng\r\n", "", u"Local.lng"},
        {"Language=\r\n", "", u""},
        {"", "", u"Default.lng"},
        {"Language=" + tooLong + "\r\n", "", u"Default.lng"},
        {"Language=C:\\Else\\Local.lng\r\n", "", u"Local.lng"}};
    for (const auto& [local, user, language] : cases) {
        WriteLocal(local);
        WriteUser(user);
        CVBRSettings settings = Make(true);
        settings.Load();
        EXPECT_EQ(settings.Language, language) << local << user;
    }
}

TEST_F(SettingsTest, ALanguagePickedByAnotherProgramTakesEffect) {
    CVBRSettings settings = Make();
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Default.lng");
    WriteLocal("Language=D:\\Other\\Picked.lng\r\n");
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Picked.lng");
    WriteLocal("Language=\r\n");
    EXPECT_EQ(settings.GetLanguageFileName(), u"");
    settings.SetLanguage(u"C:/App/Set.lng");
    WriteLocal("");
    EXPECT_EQ(settings.GetLanguageFileName(), u"C:\\App\\Set.lng");
}

TEST_F(SettingsTest, WriteLanguageChangesThatKeyAndNotTheMemory) {
    WriteLocal("Sorting=1\r\n");
    CVBRSettings settings = Make();
    settings.WriteLanguage(u"C:\\App\\New.lng");
    EXPECT_EQ(folder_.Read("local.ini"), "[Settings]\r\nSorting=1\r\nLanguage=New.lng\r\n");
    EXPECT_EQ(settings.Language, u"Default.lng");
}

TEST_F(SettingsTest, ThePanePositionIsReadFromTheChosenFileAlone) {
    const CVBRSettings settings = Make();
    folder_.Write("user.ini",
                  "[Settings_Agent]\r\nFloatPaneRect_TOPLEFT_x=1\r\nFloatPaneRect_TOPLEFT_y=1\r\n");
    EXPECT_EQ(settings.GetPanePosition({7, 8}), (PanePosition{7, 8}));
    folder_.Write("local.ini", "[Settings_Agent]\r\nFloatPaneRect_TOPLEFT_y=-20\r\n");
    EXPECT_EQ(settings.GetPanePosition({7, 8}), (PanePosition{7, -20}));
}

TEST_F(SettingsTest, TheLastCheckIsAPairOfNumbers) {
    CVBRSettings settings = Make();
    const SystemTime time{2024, 5, 0, 5, 10, 20, 30, 400};
    settings.SetLastCheckForUpdates(time);
    EXPECT_EQ(settings.GetLastCheckForUpdates(), time);
    settings.SetLastCheckForUpdates({2024, 13, 0, 5, 0, 0, 0, 0});
    EXPECT_EQ(settings.GetLastCheckForUpdates(), time);
    EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Hi"), ToDecimal(133593780304000000 >> 32));
    EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Low"), ToDecimal(133593780304000000 & 0xFFFFFFFF));
}

TEST_F(SettingsTest, AnUnreadableLastCheckBecomesTheFixedDateInTheFileToo) {
    for (const char* lines :
         {"", "LastCheckForUpdates_V2Low=5\r\n", "LastCheckForUpdates_V2Hi=5\r\n",
          "LastCheckForUpdates_V2Low=x\r\nLastCheckForUpdates_V2Hi=y\r\n",
          "LastCheckForUpdates_V2Low=0\r\n"
          "LastCheckForUpdates_V2Hi=4294967295\r\n"}) {
        WriteLocal(lines);
        EXPECT_EQ(Make().GetLastCheckForUpdates(), (SystemTime{2013, 1, 2, 1, 0, 0, 0, 0}));
        EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Hi"), u"30271410") << lines;
        EXPECT_EQ(Stored(u"LastCheckForUpdates_V2Low"), u"4046192640") << lines;
    }
}

TEST_F(SettingsTest, TheInsertDelayIsWrittenWhenItIsFirstAskedFor) {
    CVBRSettings settings = Make();
    EXPECT_EQ(settings.GetDelayInsertMilliseconds(), 400u);
    EXPECT_EQ(Stored(u"DelayInsertMilliseconds_v141"), u"400");
    WriteLocal("DelayInsertMilliseconds_v141=250\r\n");
    EXPECT_EQ(settings.GetDelayInsertMilliseconds(), 250u);
    for (const char* bad : {"-1", "soon"}) {
        WriteLocal(std::string("DelayInsertMilliseconds_v141=") + bad + "\r\n");
        EXPECT_EQ(settings.GetDelayInsertMilliseconds(), 400u);
        EXPECT_EQ(Stored(u"DelayInsertMilliseconds_v141"), Utf8ToUtf16(bad));
    }
}

TEST_F(SettingsTest, WhatOneProgramRemembersTheNextFinds) {
    CVBRSettings settings = Make();
    EXPECT_EQ(settings.GetSkippedVersion(), u"");
    EXPECT_EQ(settings.GetDirectoryForSave(), u"");
    EXPECT_FALSE(settings.IsWelcomeAlreadyStarted());
    settings.SetSkippedVersion(u"15,16");
    settings.SetDirectoryForSave(u"D:\\Texts");
    settings.SetInt(u"Welcome_Already_Started_V2_60", 1);
    const CVBRSettings next = Make();
    EXPECT_EQ(next.GetSkippedVersion(), u"15,16");
    EXPECT_EQ(next.GetDirectoryForSave(), u"D:\\Texts");
    EXPECT_TRUE(next.IsWelcomeAlreadyStarted());
}

}  // namespace
}  // namespace vbr

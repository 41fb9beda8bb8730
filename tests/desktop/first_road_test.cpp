// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>

#include "base/text.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "platform/date_forms.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::u16string LongDateOfToday(LCID language) {
    wchar_t date[100];
    GetDateFormatW(language, DATE_LONGDATE, nullptr, nullptr, date, 100);
    return FromWide(date);
}

// The program with one phrase in its menu, and Notepad in front of it.
class FirstRoad : public testing::Test {
  protected:
    std::filesystem::path StartWithPhrase(const std::string& xmlCmd) {
        const std::filesystem::path file = program_.AddPhrase("Only phrase", 1, xmlCmd);
        EXPECT_TRUE(program_.StartResident());
        EXPECT_TRUE(notepad_.IsOpen());
        EXPECT_TRUE(WaitUntil([this] { return notepad_.BringToFront(); }));
        return file;
    }

    // What Notepad holds after the hot key and the choice of the phrase.
    std::u16string TextAfterChoice(const std::u16string& expected) {
        PressHotkey();
        EXPECT_TRUE(WaitForMenu());
        ChooseMenuItem(0);
        return notepad_.WaitForText(expected);
    }

    Program program_;
    Notepad notepad_;
};

TEST_F(FirstRoad, DateArrivesInNotepad) {
    StartWithPhrase("Today is %DATE%.");
    const std::u16string expected =
        Concat(u"Today is ", LongDateOfToday(GetUserDefaultLCID()), u".");
    EXPECT_EQ(TextAfterChoice(expected), expected);
}

TEST_F(FirstRoad, SelectionIsWrapped) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    notepad_.SetText(u"one two three");
    notepad_.Select(4, 7);
    EXPECT_EQ(TextAfterChoice(u"one [two] three"), u"one [two] three");
}

TEST_F(FirstRoad, CyrillicEmojiLineEndsAndTabsArriveAsTyped) {
    StartWithPhrase("Привет \xF0\x9F\x99\x82!&#x0D;&#x0A;&#x09;ё%KEYPRESS_ENTER%end");
    const std::u16string expected = u"Привет 🙂!\r\n\tё\r\nend";
    EXPECT_EQ(TextAfterChoice(expected), expected);
}

TEST_F(FirstRoad, CursorWaitsWhereThePhraseSays) {
    StartWithPhrase("ab%CURSOR_POS%&#x0D;&#x0A;cd");
    ASSERT_EQ(TextAfterChoice(u"ab\r\ncd"), u"ab\r\ncd");
    PressKeys({'X'});
    EXPECT_EQ(notepad_.WaitForText(u"abx\r\ncd"), u"abx\r\ncd");
}

TEST_F(FirstRoad, UseIsCountedInThePhraseFile) {
    const std::filesystem::path file = StartWithPhrase("text");
    ASSERT_EQ(TextAfterChoice(u"text"), u"text");
    SYSTEMTIME now;
    GetSystemTime(&now);
    const std::regex used("<VBRCommand UsageCount=\"1\" [^>]*DateUsage=\"" +
                          std::to_string(now.wYear) + "\\|" + std::to_string(now.wMonth) +
                          "\\|\\d+\\|\\d+\\|\\d+\\|\\d+\">");
    EXPECT_TRUE(WaitUntil([&] { return std::regex_search(FileBytes(file), used); }))
        << FileBytes(file);
    EXPECT_NE(FileBytes(file).find("<Cmd>text</Cmd>"), std::string::npos);
}

TEST_F(FirstRoad, CancelledMenuLeavesTheTextAlone) {
    const std::filesystem::path file = StartWithPhrase("never");
    const std::string before = FileBytes(file);
    notepad_.SetText(u"kept");
    PressHotkey();
    ASSERT_TRUE(WaitForMenu());
    PressKeys({VK_ESCAPE});
    ASSERT_TRUE(WaitForNoMenu());
    // The keyboard is Notepad's again, and nothing else was typed.
    ASSERT_TRUE(WaitUntil([this] { return notepad_.BringToFront(); }));
    PressKeys({'Z'});
    EXPECT_EQ(notepad_.WaitForText(u"zkept"), u"zkept");
    EXPECT_EQ(FileBytes(file), before);
}

TEST_F(FirstRoad, BadPhraseFilesAreLeftAsTheyAreAndTheOthersLoad) {
    const std::vector<std::pair<std::wstring, std::string>> bad = {
        {L"empty.vellumbridge", ""},
        {L"cut.vellumbridge", "<VBRCommand><MenuName>Cut</MenuName><Cmd>half of the te"},
        {L"other.vellumbridge", "not XML at all"},
    };
    for (const auto& [name, bytes] : bad) {
        std::ofstream(program_.Phrases() / name, std::ios::binary) << bytes;
    }
    const std::filesystem::path lockedPath = program_.AddPhrase("Locked", 0, "locked");
    const UniqueHandle locked(
        CreateFileW(lockedPath.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(IsValid(locked));
    program_.WriteSettings("WriteLog=1");
    StartWithPhrase("good");
    EXPECT_EQ(TextAfterChoice(u"good"), u"good");
    EXPECT_EQ(program_.End(), 0U);
    for (const auto& [name, bytes] : bad) {
        EXPECT_EQ(FileBytes(program_.Phrases() / name), bytes);
    }
    const std::u16string lines = program_.Log();
    std::size_t skipped = 0;
    for (std::size_t at = 0; (at = lines.find(u"Phrase file skipped: ", at)) != lines.npos; ++at) {
        ++skipped;
    }
    EXPECT_EQ(skipped, bad.size() + 1);
}

}  // namespace
}  // namespace vbr::desktop

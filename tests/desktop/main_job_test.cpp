// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <regex>

#include "desktop/program_test.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

std::u16string LongDateOfToday(LCID language) {
    wchar_t date[100];
    GetDateFormatW(language, DATE_LONGDATE, nullptr, nullptr, date, 100);
    return FromWide(date);
}

// The program with one phrase in its menu, and Notepad in front of it.
class MainJob : public ProgramTest {
  protected:
    // What Notepad holds after the hot key and the choice of the phrase.
    std::u16string TextAfterChoice(const std::u16string& expected) {
        Choose(notepad_);
        return notepad_.WaitForText(expected);
    }

    const std::filesystem::path file_ = program_.Phrases() / "Only phrase.vellumbridge";
    const Notepad notepad_;
};

TEST_F(MainJob, DateArrivesInNotepad) {
    StartWithPhrase("Today is %DATE%.");
    const std::u16string expected =
        Concat(u"Today is ", LongDateOfToday(GetUserDefaultLCID()), u".");
    EXPECT_EQ(TextAfterChoice(expected), expected);
}

TEST_F(MainJob, SelectionIsWrapped) {
    StartWithPhrase("[%SELECTED_TEXT%]");
    notepad_.SetText(u"one two three");
    notepad_.Select(4, 7);
    EXPECT_EQ(TextAfterChoice(u"one [two] three"), u"one [two] three");
}

TEST_F(MainJob, CyrillicEmojiLineEndsAndTabsArriveAsTyped) {
    StartWithPhrase("Привет \xF0\x9F\x99\x82!&#x0D;&#x0A;&#x09;ё%KEYPRESS_ENTER%end");
    const std::u16string expected = u"Привет 🙂!\r\n\tё\r\nend";
    EXPECT_EQ(TextAfterChoice(expected), expected);
}

TEST_F(MainJob, UseIsCountedInThePhraseFile) {
    StartWithPhrase("text");
    ASSERT_EQ(TextAfterChoice(u"text"), u"text");
    SYSTEMTIME now;
    GetSystemTime(&now);
    const std::regex used("<VBRCommand UsageCount=\"1\" [^>]*DateUsage=\"" +
                          std::to_string(now.wYear) + "\\|" + std::to_string(now.wMonth) +
                          "\\|\\d+\\|\\d+\\|\\d+\\|\\d+\">");
    EXPECT_TRUE(WaitUntil([&] { return std::regex_search(FileBytes(file_), used); }))
        << FileBytes(file_);
    EXPECT_NE(FileBytes(file_).find("<Cmd>text</Cmd>"), std::string::npos);
}

TEST_F(MainJob, CancelledMenuLeavesTheTextAlone) {
    StartWithPhrase("never");
    const std::string before = FileBytes(file_);
    notepad_.SetText(u"kept");
    OpenMenu(notepad_);
    CloseMenu();
    // The keyboard is Notepad's again, and nothing else was typed.
    ASSERT_TRUE(WaitUntil([this] { return notepad_.BringToFront(); }));
    PressKeys({'Z'});
    EXPECT_EQ(notepad_.WaitForText(u"zkept"), u"zkept");
    EXPECT_EQ(FileBytes(file_), before);
}

}  // namespace
}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/program_test.h"

namespace vbr::desktop {
namespace {

// The program with one phrase in its menu, and Notepad in front of it.
class MainJob : public ProgramTest {
  protected:
    // What Notepad holds after the hot key and the choice of the phrase.
    std::u16string TextAfterChoice(const std::u16string& expected) {
        Choose(notepad_);
        return notepad_.WaitForText(expected);
    }

    const Notepad notepad_;
};

TEST_F(MainJob, DateArrivesInNotepad) {
    StartWithPhrase("Today is %DATE%.");
    wchar_t date[100];
    GetDateFormatW(GetUserDefaultLCID(), DATE_LONGDATE, nullptr, nullptr, date, 100);
    const std::u16string expected = Concat(u"Today is ", FromWide(date), u".");
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

TEST_F(MainJob, UseIsCountedInThePhraseFileAndAnEditOfItIsKeptAndTaken) {
    StartWithPhrase("old ");
    const std::filesystem::path file = program_.AddPhrase("Only phrase", 1, "new");
    ASSERT_EQ(TextAfterChoice(u"old "), u"old ");
    EXPECT_TRUE(WaitUntil([&] {
        return FileBytes(file).find("UsageCount=\"1\"") != std::string::npos;
    })) << FileBytes(file);
    EXPECT_NE(FileBytes(file).find("<Cmd>new</Cmd>"), std::string::npos);
    EXPECT_EQ(TextAfterChoice(u"old new"), u"old new");
}

}  // namespace
}  // namespace vbr::desktop

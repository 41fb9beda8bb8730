// SPDX-License-Identifier: MIT
#include "desktop/program_test.h"

namespace vbr::desktop {
namespace {

class Notepad32 : public ProgramTest {};

TEST_F(Notepad32, ItsSelectionReachesThePhraseAndThePhraseIsTyped) {
    if (!std::filesystem::exists(Notepad::k32Bit)) {
        GTEST_SKIP() << "There is no 32-bit Notepad here.";
    }
    StartWithPhrase("[%SELECTED_TEXT%] Ж%KEYPRESS_ENTER%");
    const Notepad notepad(Notepad::k32Bit);
    ASSERT_TRUE(notepad.Is32Bit());
    notepad.SetText(u"one two three");
    notepad.Select(4, 7);
    Choose(notepad);
    EXPECT_EQ(notepad.WaitForText(u"one [two] Ж\r\n three"), u"one [two] Ж\r\n three");
}

}  // namespace
}  // namespace vbr::desktop

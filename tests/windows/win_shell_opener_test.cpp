// SPDX-License-Identifier: MIT
#include "platform/win32/win_shell_opener.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(WinShellOpener, AFileIsOpenedByWhatItsKindIsOpenedWith) {
    const TempFolder folder;
    folder.Write(u"привет.cmd", "@echo opened> \"%~dp0seen.txt\"\r\n");
    const std::u16string target = (folder.Path() / u"привет.cmd").u16string();
    EXPECT_GT(WinShellOpener().Open(0, target, ShowState::Normal), 32);
    std::string seen;
    for (int i = 0; i < 500 && !seen.ends_with("\n"); ++i) {
        Sleep(20);
        seen = folder.Read("seen.txt");
    }
    EXPECT_EQ(seen, "opened\r\n");
}

TEST(WinShellOpener, AMissingFileGivesTheShellsErrorNumber) {
    const TempFolder folder;
    const std::u16string missing = (folder.Path() / "missing.txt").u16string();
    EXPECT_LE(WinShellOpener().Open(0, missing, ShowState::Normal), 32);
}

}  // namespace
}  // namespace vbr

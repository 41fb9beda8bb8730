// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <regex>
#include <string>

#include "base/text.h"
#include "base/version.h"
#include "platform/win32/handle.h"
#include "platform/win32/win_system_info.h"
#include "resources/resource_ids.h"
#include "windows/program_folder.h"

namespace vbr {
namespace {

// The built program, opened for its resources only.
class ProgramResourcesTest : public testing::Test {
  protected:
    void SetUp() override {
        const auto path = ProgramFolder() / "Vellumbridge.exe";
        program_.reset(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
        ASSERT_TRUE(program_) << path;
    }

    std::string Resource(int id, const wchar_t* type) const {
        HRSRC found = FindResourceW(program_.get(), MAKEINTRESOURCEW(id), type);
        HGLOBAL loaded = found ? LoadResource(program_.get(), found) : nullptr;
        return loaded ? std::string(static_cast<const char*>(LockResource(loaded)),
                                    SizeofResource(program_.get(), found))
                      : std::string();
    }

    UniqueLibrary program_;
};

TEST(ProgramVersionTest, TheVersionOfAFileIsThatOfTheProgram) {
    const WinSystemInfo info((ProgramFolder() / "").u16string());
    const auto [major, minor, patch, build] = kVersionNumbers;
    const std::u16string expected = Concat(major, u".", minor, u".", patch, u".", build);
    EXPECT_EQ(info.FileVersion(ProgramFile::HookLibrary), expected);
    EXPECT_EQ(info.FileVersion(ProgramFile::Main), expected);
}

TEST_F(ProgramResourcesTest, EveryIconLoadsInTheSizesOfMenusAndTitles) {
    for (const int id :
         {kIconProgram, kIconProgramOff, kIconTrayBlink, kIconExecute, kIconProtected,
          kIconPaneClose, kIconPaneMinimize, kIconPaneEdit, kIconPaneCopy, kIconPaneRestore,
          kIconFormattedText, kIconPaneKeep, kIconGoogle, kIconYandex, kIconUrl, kIconWikipedia,
          kIconMsdn, kIconPaneFix, kIconHoveredRow}) {
        for (const int size : {16, 32}) {
            auto* icon = static_cast<HICON>(LoadImageW(program_.get(), MAKEINTRESOURCEW(id),
                                                       IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
            EXPECT_TRUE(icon) << id << " at " << size;
            DestroyIcon(icon);
        }
    }
}

TEST_F(ProgramResourcesTest, TheManifestAsksForNewControlsAndForEachMonitorsScale) {
    const std::string manifest = Resource(1, RT_MANIFEST);
    EXPECT_TRUE(std::regex_search(
        manifest, std::regex("name=\"Microsoft\\.Windows\\.Common-Controls\"\\s+version=\"6\\.")));
    EXPECT_TRUE(std::regex_search(manifest, std::regex("<dpiAwareness[^>]*>PerMonitorV2\\b")));
}

}  // namespace
}  // namespace vbr

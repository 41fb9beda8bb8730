// SPDX-License-Identifier: MIT
#include "settings/embedded_strings.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// All commands below `entries`, sub-menus included.
std::vector<MenuEntry> AllCommands(const std::vector<MenuEntry>& entries) {
    std::vector<MenuEntry> commands;
    for (const MenuEntry& entry : entries) {
        if (entry.IsSubMenu()) {
            const auto below = AllCommands(entry.Children);
            commands.insert(commands.end(), below.begin(), below.end());
        } else if (!entry.IsSeparator()) {
            commands.push_back(entry);
        }
    }
    return commands;
}

void ExpectTidySeparators(const std::vector<MenuEntry>& entries, const std::u16string& menuText) {
    ASSERT_FALSE(entries.empty());
    EXPECT_FALSE(entries.front().IsSeparator()) << Utf16ToUtf8(menuText);
    EXPECT_FALSE(entries.back().IsSeparator()) << Utf16ToUtf8(menuText);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const MenuEntry& entry = entries[i];
        if (i > 0) {
            EXPECT_FALSE(entry.IsSeparator() && entries[i - 1].IsSeparator())
                << Utf16ToUtf8(menuText) << ", entry " << i;
        }
        if (entry.IsSubMenu()) {
            ExpectTidySeparators(entry.Children, entry.Text);
        }
    }
}

TEST(EmbeddedStringsTest, UnknownIdIsEmpty) {
    const EmbeddedStrings strings;
    for (const int id :
         {std::numeric_limits<int>::min(), -1, 0, kStrProductName - 1, kStrProductName + 1,
          kCmdHowToLocalize, kCmdAbout - 1, kCmdExit + 1, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(strings.LoadString(id), u"") << id;
    }
}

TEST(EmbeddedStringsTest, HintNamesTheMenuCommandAsTheMenuShowsIt) {
    const EmbeddedStrings strings;
    const std::u16string command = strings.GetCommandText(kMenuTray, kCmdEditPhrases);
    EXPECT_EQ(command, u"Edit Phrases\\Settings");
    EXPECT_TRUE(strings.LoadString(kStrChangeTimeoutHint).ends_with(Concat(u"\"", command, u"\"")));
}

TEST(EmbeddedStringsTest, CommandTextLosesAccessKeyAndEllipsis) {
    EXPECT_EQ(EmbeddedStrings().GetCommandText(kMenuTray, kCmdAbout), u"About Vellumbridge");
}

TEST(EmbeddedStringsTest, CommandTextIsFoundInsideAndBehindSubMenus) {
    const EmbeddedStrings strings;
    EXPECT_EQ(strings.GetCommandText(kMenuHistoryRow, kCmdOpenWith), u"Open With");
    EXPECT_EQ(strings.GetCommandText(kMenuHistoryRow, kCmdShowAllItems), u"Show All Items");
}

TEST(EmbeddedStringsTest, CommandTextOfWhatIsNotInTheMenuIsEmpty) {
    const EmbeddedStrings strings;
    EXPECT_EQ(strings.GetCommandText(kMenuTray, kCmdOpenWith), u"");
    EXPECT_EQ(strings.GetCommandText(kMenuHistoryRow, kCmdExit), u"");
    EXPECT_EQ(strings.GetCommandText(0, kCmdExit), u"");
}

TEST(CleanCommandTextTest, SingleAmpersandGoesAndDoubleStays) {
    EXPECT_EQ(CleanCommandText(u"Save && E&xit"), u"Save && Exit");
    EXPECT_EQ(CleanCommandText(u"&&&Open"), u"&&Open");
    EXPECT_EQ(CleanCommandText(u"Open&"), u"Open");
}

TEST(CleanCommandTextTest, OnlyATrailingEllipsisGoes) {
    EXPECT_EQ(CleanCommandText(u"&Save…"), u"Save");
    EXPECT_EQ(CleanCommandText(u"Wait… for it"), u"Wait… for it");
    EXPECT_EQ(CleanCommandText(u"Save..."), u"Save...");
    EXPECT_EQ(CleanCommandText(u""), u"");
}

TEST(EmbeddedStringsTest, TranslateMenuKeepsTheEnglishMenu) {
    const MenuTemplate& english = *MenuTemplateById(kMenuTray);
    std::vector<MenuEntry> entries = english.Entries;
    EmbeddedStrings().TranslateMenu(entries);
    EXPECT_EQ(entries, english.Entries);
}

class MenuTemplateTest : public testing::TestWithParam<int> {
  protected:
    const std::vector<MenuEntry>& Entries() const { return MenuTemplateById(GetParam())->Entries; }
};

TEST_P(MenuTemplateTest, CommandIdsAreUnique) {
    std::set<int> ids;
    for (const MenuEntry& command : AllCommands(Entries())) {
        EXPECT_TRUE(ids.insert(command.Id).second) << command.Id;
    }
}

TEST_P(MenuTemplateTest, EveryCommandHasATip) {
    const EmbeddedStrings strings;
    for (const MenuEntry& command : AllCommands(Entries())) {
        // The entry above the languages is the one that shows the default tip.
        if (command.Id != kCmdHowToLocalize) {
            EXPECT_NE(strings.LoadString(command.Id), u"") << command.Id;
        }
    }
}

TEST_P(MenuTemplateTest, SeparatorsOnlyStandBetweenEntries) {
    ExpectTidySeparators(Entries(), u"top level");
}

INSTANTIATE_TEST_SUITE_P(Menus, MenuTemplateTest, testing::Values(kMenuTray, kMenuHistoryRow));

TEST(MenuTemplateByIdTest, UnknownMenuIsNull) {
    EXPECT_EQ(MenuTemplateById(204), nullptr);
}

}  // namespace
}  // namespace vbr

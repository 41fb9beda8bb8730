// SPDX-License-Identifier: MIT
#include "settings/embedded_strings.h"

#include <limits>
#include <set>
#include <vector>

#include "fakes/text_cases.h"
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

TEST(EmbeddedStringsTest, ACommandIsFoundAnywhereInItsMenuAndNamedAsTheMenuShowsIt) {
    const std::tuple<int, int, std::u16string_view> cases[] = {
        {kMenuTray, kCmdAbout, u"About Vellumbridge"},
        {kMenuHistoryRow, kCmdOpenWith, u"Open With"},           // in a sub-menu
        {kMenuHistoryRow, kCmdShowAllItems, u"Show All Items"},  // behind one
        {kMenuTray, kCmdOpenWith, u""},
        {0, kCmdExit, u""}};
    const EmbeddedStrings strings;
    for (const auto& [menu, command, text] : cases) {
        EXPECT_EQ(strings.GetCommandText(menu, command), text) << menu << " " << command;
    }
    EXPECT_TRUE(
        strings.LoadString(kStrChangeTimeoutHint)
            .ends_with(Concat(u"\"", strings.GetCommandText(kMenuTray, kCmdEditPhrases), u"\"")));
}

TEST(CleanCommandTextTest, OneAmpersandAndAnEllipsisAtTheEndGo) {
    ExpectTexts({{u"Save && E&xit", u"Save && Exit"},
                 {u"&&&Open", u"&&Open"},
                 {u"Open&", u"Open"},
                 {u"&Save…", u"Save"},
                 {u"Wait… for it", u"Wait… for it"},
                 {u"", u""}},
                CleanCommandText);
}

TEST(MenuTemplates, CommandsHaveIdsAndTipsOfTheirOwnAndSeparatorsStandBetweenEntries) {
    const EmbeddedStrings strings;
    for (const int menu : {kMenuTray, kMenuHistoryRow}) {
        const std::vector<MenuEntry>& entries = MenuTemplateById(menu)->Entries;
        std::set<int> ids;
        for (const MenuEntry& command : AllCommands(entries)) {
            EXPECT_TRUE(ids.insert(command.Id).second) << command.Id;
            // The entry above the languages is the one that shows the default tip.
            EXPECT_EQ(strings.LoadString(command.Id).empty(), command.Id == kCmdHowToLocalize)
                << command.Id;
        }
        ExpectTidySeparators(entries, u"top level");
    }
}

}  // namespace
}  // namespace vbr

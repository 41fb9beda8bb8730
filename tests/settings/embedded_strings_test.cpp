// SPDX-License-Identifier: MIT
#include "settings/embedded_strings.h"

#include <set>
#include <vector>

#include "fakes/text_cases.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// That separators stand only between entries, and that commands have a tip and, beyond `ids`, an id
// of their own.
void CheckEntries(const std::vector<MenuEntry>& entries, std::set<int>& ids) {
    const MenuEntry* before = nullptr;
    for (const MenuEntry& entry : entries) {
        if (entry.IsSeparator()) {
            EXPECT_TRUE(before && !before->IsSeparator()) << "behind " << ids.size();
        } else if (entry.IsSubMenu()) {
            CheckEntries(entry.Children, ids);
        } else {
            EXPECT_TRUE(ids.insert(entry.Id).second) << entry.Id;
            // The entry above the languages is the one that shows the default tip.
            EXPECT_EQ(EmbeddedStrings().LoadString(entry.Id).empty(), entry.Id == kCmdHowToLocalize)
                << entry.Id;
        }
        before = &entry;
    }
    EXPECT_TRUE(before && !before->IsSeparator()) << "at the end";
}

TEST(EmbeddedStringsTest, UnknownIdIsEmpty) {
    for (const int id : {-1, 0, kStrProductName - 1, kCmdExit + 1}) {
        EXPECT_EQ(EmbeddedStrings().LoadString(id), u"") << id;
    }
}

TEST(EmbeddedStringsTest, ACommandIsFoundAnywhereInItsMenuAndNamedAsTheMenuShowsIt) {
    const std::tuple<int, int, std::u16string_view> cases[] = {
        {kMenuTray, kCmdAbout, u"About Vellumbridge"},
        {kMenuHistoryRow, kCmdOpenWith, u"Open With"},           // in a sub-menu
        {kMenuHistoryRow, kCmdShowAllItems, u"Show All Items"},  // behind one
        {kMenuTray, kCmdEditPhrases, u"Edit Phrases\\Settings"},
        {kMenuTray, kCmdOpenWith, u""},
        {kMenuHistoryRow, kCmdExit, u""},
        {0, kCmdExit, u""}};
    const EmbeddedStrings strings;
    for (const auto& [menu, command, text] : cases) {
        EXPECT_EQ(strings.GetCommandText(menu, command), text) << menu << " " << command;
    }
}

TEST(CleanCommandTextTest, OneAmpersandAndAnEllipsisAtTheEndGo) {
    ExpectTexts({{u"Save && E&xit", u"Save && Exit"},
                 {u"&&&Open", u"&&Open"},
                 {u"&Save…", u"Save"},
                 {u"Wait… for it", u"Wait… for it"},
                 {u"", u""}},
                CleanCommandText);
}

TEST(MenuTemplates, CommandsHaveIdsAndTipsOfTheirOwnAndSeparatorsStandBetweenEntries) {
    for (const int menu : {kMenuTray, kMenuHistoryRow}) {
        std::set<int> ids;
        CheckEntries(MenuTemplateById(menu)->Entries, ids);
        EXPECT_FALSE(ids.empty());
    }
}

}  // namespace
}  // namespace vbr

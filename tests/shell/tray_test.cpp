// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "resources/resource_ids.h"
#include "settings/embedded_strings.h"
#include "shell/tray_menu.h"
#include "shell/tray_texts.h"

namespace vbr {
namespace {

TEST(TrayTip, LosesWholeLinesFromTheEndUntilItFits) {
    const std::u16string line(60, u'x');
    const std::u16string full(126, u'f');
    EXPECT_EQ(TrayTip(line, line + u"\n3456"), line + u"\n" + line + u"\n3456");
    EXPECT_EQ(TrayTip(line, line + u"\n34567\nhint"), line + u"\n" + line);
    EXPECT_EQ(TrayTip(full, u"details"), full);
    EXPECT_EQ(TrayTip(full + u"f", u"details"), full);
    EXPECT_EQ(TrayTip(full.substr(1) + u"🙂", u"details"), full.substr(1));
}

TEST(TrayTexts, TellStateHotKeyAndFolder) {
    const EmbeddedStrings strings;
    TrayState state{.HotkeyName = u"Ctrl+F5",
                    .PhrasesFolder = u"C:\\P\\",
                    .Phrases = {.Total = 5, .Enabled = 4}};
    EXPECT_TRUE(TrayFirstLine(state, strings).ends_with(u" - OFF"));
    EXPECT_TRUE(GetTrayInfoText(state, strings)
                    .starts_with(u"Hot key: Ctrl+F5\nFolder: C:\\P [4/5]\nRight click"));
    state.ServiceInstalled = true;
    state.Elevated = true;
    EXPECT_TRUE(TrayFirstLine(state, strings).ends_with(u"^ - on"));
}

// A translation that has brackets of its own.
class TranslatedStrings : public EmbeddedStrings {
  public:
    void TranslateMenu(std::vector<MenuEntry>& entries) const override {
        for (MenuEntry& entry : entries) {
            entry.Text = u"Neu lesen  [1/2]";
            TranslateMenu(entry.Children);
        }
    }
};

TEST(TrayMenu, ShowsOneCountInBracketsBehindTheRereadCommand) {
    const TrayMenuState state{.Phrases = {.Total = 7, .Enabled = 6}};
    EXPECT_EQ(FindCommand(BuildTrayMenu(state, EmbeddedStrings()), kCmdRereadPhrases)->Text,
              u"Reread Phrases [6/7]");
    EXPECT_EQ(FindCommand(BuildTrayMenu(state, TranslatedStrings()), kCmdRereadPhrases)->Text,
              u"Neu lesen [6/7]");
}

TEST(TrayMenu, ChecksTheServiceWhileItIsInstalled) {
    for (const bool installed : {false, true}) {
        const auto menu = BuildTrayMenu({.ServiceInstalled = installed}, EmbeddedStrings());
        EXPECT_EQ(FindCommand(menu, kCmdEnableService)->Checked, installed);
    }
}

}  // namespace
}  // namespace vbr

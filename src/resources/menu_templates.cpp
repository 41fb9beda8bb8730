// SPDX-License-Identifier: MIT
#include "resources/menu_templates.h"

#include <string_view>
#include <utility>

#include "resources/resource_ids.h"

namespace vbr {
namespace {

MenuEntry Command(int id, std::u16string_view text) {
    MenuEntry entry;
    entry.Id = id;
    entry.Text = text;
    return entry;
}

MenuEntry DefaultCommand(int id, std::u16string_view text) {
    MenuEntry entry = Command(id, text);
    entry.Default = true;
    return entry;
}

MenuEntry SubMenu(std::u16string_view text, std::vector<MenuEntry> children) {
    MenuEntry entry;
    entry.Text = text;
    entry.Children = std::move(children);
    return entry;
}

MenuEntry Separator() {
    return {};
}

MenuTemplate MakeTrayMenu() {
    return {
        kMenuTray,
        {
            Command(kCmdExit, u"E&xit"),
            Command(kCmdRunAsAdministrator, u"Run As Administrator"),
            Separator(),
            Command(kCmdAbout, u"&About Vellumbridge…"),
            Command(kCmdCheckForUpdates, u"Check For Updates"),
            Separator(),
            SubMenu(u"Help",
                    {
                        Command(kCmdVisitWebSite, u"Visit To Web Site"),
                        Command(kCmdVisitQuickStart, u"Visit To Quick Start"),
                        Separator(),
                        Command(kCmdVisitForum, u"Visit To Forum"),
                        Command(kCmdVisitFaq, u"Visit to F.A.Q."),
                        Command(kCmdRssFeed, u"RSS Feed"),
                        Command(kCmdVideo, u"Video"),
                        Command(kCmdFacebookGroup, u"Facebook Group"),
                        Command(kCmdVkontakteGroup, u"VKontakte Group"),
                        Separator(),
                        Command(kCmdEmailToUs, u"Email To Us"),
                        Command(kCmdSupport, u"Support"),
                    }),
            SubMenu(u"Language",
                    {
                        Command(kCmdHowToLocalize, u"How To Localize Vellumbridge?"),
                    }),
            Command(kCmdWelcome, u"Welcome To Vellumbridge"),
            Separator(),
            Command(kCmdStartWithWindows, u"Start With Windows"),
            DefaultCommand(kCmdEditPhrases, u"Edit Phrases\\Settings…"),
            SubMenu(u"Quick Settings",
                    {
                        Command(kCmdSounds, u"Sounds"),
                        Command(kCmdWriteLog, u"Wrte Log"),
                        Command(kCmdMenuOnMouseEvent, u"Menu On Mouse Event"),
                        Command(kCmdHistoryPaneOnStart, u"History Panel On Start"),
                        Separator(),
                        Command(kCmdRereadPhrases, u"Reread Phrases"),
                        Command(kCmdOpenSettingsFile, u"Open Settings File"),
                    }),
            SubMenu(u"Clipboard History",
                    {
                        Command(kCmdKeepHistory, u"Keep"),
                        Command(kCmdRekeepHistory, u"Re-Keep"),
                        Command(kCmdSaveHistoryOnExit, u"Save On Exit"),
                        Separator(),
                        Command(kCmdClearHistory, u"Clear"),
                    }),
            Command(kCmdSavePhraseFromClipboard, u"Save Phrase From Clipboard"),
            Separator(),
            Command(kCmdTogglePane, u"Clipboard History Pane"),
            Command(kCmdEnableService, u"Enable Menu Of Phrases"),
        },
    };
}

MenuTemplate MakeHistoryRowMenu() {
    return {
        kMenuHistoryRow,
        {
            DefaultCommand(kCmdCopyItem, u"Copy"),
            Command(kCmdOpenAsUrl, u"Open As URL"),
            Separator(),
            SubMenu(u"Copy+",
                    {
                        Command(kCmdCopyPlainText, u"Copy As Plain Text"),
                        Command(kCmdCopyRtf, u"Copy As RTF"),
                        Command(kCmdCopyHtml, u"Copy As HTML"),
                        Separator(),
                        Command(kCmdEditItem, u"Edit"),
                        Command(kCmdOpenWith, u"Open With…"),
                        Separator(),
                        Command(kCmdCopySourceUrl, u"Copy Source URL"),
                        Command(kCmdOpenSourceUrl, u"Open Source URL"),
                        Separator(),
                        Command(kCmdEmptyClipboard, u"Empty Clipboard"),
                    }),
            SubMenu(u"Search In…",
                    {
                        Command(kCmdSearchGoogle, u"Search In Google"),
                        Command(kCmdSearchYandex, u"Search In Yandex"),
                        Command(kCmdSearchWikipedia, u"Search In Wikipedia"),
                        Command(kCmdSearchMsdn, u"Search In MSDN"),
                    }),
            Separator(),
            Command(kCmdProtect, u"Protect"),
            Command(kCmdDelete, u"Delete"),
            Command(kCmdClearHistory, u"Clear"),
            Command(kCmdUndo, u"Undo"),
            Separator(),
            Command(kCmdSaveItems, u"Save…"),
            Command(kCmdRun, u"Run"),
            Separator(),
            Command(kCmdUppercase, u"UPPERCASE"),
            Command(kCmdLowercase, u"Lowercase"),
            Command(kCmdTrim, u"Trim Spaces/Tabs/New Line"),
            Command(kCmdJoinToSingleLine, u"Join To Single Line"),
            Separator(),
            Command(kCmdMinimizeToCaption, u"Minimize To Caption"),
            Command(kCmdShowAllItems, u"Show All Items"),
        },
    };
}

}  // namespace

const MenuTemplate* MenuTemplateById(int menuId) {
    static const MenuTemplate trayMenu = MakeTrayMenu();
    static const MenuTemplate historyRowMenu = MakeHistoryRowMenu();
    switch (menuId) {
        case kMenuTray:
            return &trayMenu;
        case kMenuHistoryRow:
            return &historyRowMenu;
        default:
            return nullptr;
    }
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/command_line.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

std::string FlagsOf(const CVBRCmdLine& line) {
    std::string set;
    set += line.Exit() ? "exit " : "";
    set += line.Ua() ? "ua " : "";
    set += line.AutoLoad() ? "autoload " : "";
    set += line.NoInstall() ? "noinstall " : "";
    set += line.Help() ? "help " : "";
    set += line.Edit() ? "edit " : "";
    set += line.AsAdmin() ? "asadmin " : "";
    set += line.ShowMenu() ? "showmenu " : "";
    set += line.Cfu() ? "cfu " : "";
    return set;
}

TEST(CommandLine, KeysSetTheirFlags) {
    const std::pair<std::u16string_view, const char*> cases[] = {
        {u"", ""},
        {u"edit /unknown", ""},
        {u"/EDIT", "edit "},
        {u"-Edit foo", "edit "},
        {u"/exit\tnow", "exit "},
        {u"/ua", "exit ua "},
        {u"/? -autoload /noinstall", "autoload noinstall help "},
        {u"/asadmin /showmenu /cfu", "asadmin showmenu cfu "},
        {u"x/edit", "edit "},         // what stands before a key doesn't matter
        {u"/editor", ""},             // a key ends where white space follows
        {u"/editor /edit", ""},       // a later occurrence of a spelling isn't seen
        {u"/EDITOR /edit", "edit "},  // one in the key's own case comes first
        {u"/editor -edit", "edit "}};
    for (const auto& [text, flags] : cases) {
        EXPECT_EQ(FlagsOf(CVBRCmdLine(text)), flags) << Utf16ToUtf8(text);
    }
}

TEST(CommandLine, HelpAlignsTheDescriptionsInOneColumn) {
    const std::u16string help = CommandLineHelp(EmbeddedStrings());
    EXPECT_TRUE(help.starts_with(u"Command Line Keys:\n\n/exit        - complete all"));
    EXPECT_NE(help.find(u"\n/noinstall   - no install"), std::u16string::npos);
    EXPECT_TRUE(help.ends_with(u"check for updates\n\n\nPress Ctrl+C to copy into clipboard"));
}

}  // namespace
}  // namespace vbr

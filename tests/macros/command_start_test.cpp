// SPDX-License-Identifier: MIT
#include "macros/command_start.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_desk.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SplitCommandLine, FindsTheLongestFrontThatIsAFile) {
    FakeProgramStarter files;
    files.Folders = {u"C:", u"C:\\My Files", u"C:\\Dir"};
    files.Files = {
        u"C:\\My Files\\a b.exe", u"C:\\My",  u"C:\\Dir\\x.txt", u"C:\\Dir\\x.txt ", u"tool.exe",
        u"\\\\srv\\share\\t.exe", u"http://", u"https://x/y"};
    const struct {
        std::u16string_view Command;
        CommandParts Parts;
    } cases[] = {
        {u"C:\\My Files\\a b.exe", {u"C:\\My Files\\a b.exe", u""}},
        {u"C:\\My Files\\a b.exe /x \"C:\\Dir\\y\"",
         {u"C:\\My Files\\a b.exe", u" /x \"C:\\Dir\\y\""}},
        {u"C:\\My Files\\none.exe 1", {u"C:\\My", u" Files\\none.exe 1"}},
        {u"C:\\Dir\\x.txt  y", {u"C:\\Dir\\x.txt", u"  y"}},  // a blank ends no name
        {u"tool.exe/a", {u"tool.exe", u"/a"}},
        {u"\"tool.exe\" a", {u"\"tool.exe\" a", u""}},
        {u"\\\\srv\\share\\t.exe -1", {u"\\\\srv\\share\\t.exe", u" -1"}},
        {u"C:\\gone\\..\\x tool", {u"C:\\gone\\..\\x tool", u""}},
        {u"HTTPS://x/y z", {u"HTTPS://x/y z", u""}},
        {u"lt:x tool.exe", {u"lt:x tool.exe", u""}},
        {u"%windir%\\notepad.exe", {u"%windir%\\notepad.exe", u""}},
        {u"missing", {u"missing", u""}},
        {u"", {u"", u""}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SplitCommandLine(c.Command, files), c.Parts) << Utf16ToUtf8(c.Command);
    }
}

TEST(SplitCommandLine, ALongCommandCostsFewLooksAtTheDisk) {
    FakeProgramStarter files;
    files.Folders = {u"C:", u"C:\\d"};
    files.Files = {u"C:\\d\\t.exe"};
    std::u16string command = u"C:\\d\\t.exe ";
    for (int i = 0; i < 10000; ++i) {
        command += u"C:\\a";
    }
    EXPECT_EQ(SplitCommandLine(command, files).Path, u"C:\\d\\t.exe");
    EXPECT_EQ(SplitCommandLine(std::u16string(40000, u'x'), files).Parameters, u"");
    EXPECT_LT(files.Asked, 1000);
}

TEST(CommandStart, PlaysASoundOrTellsWhatFailed) {
    DeliveryDesk desk;
    desk.Starter.Files = {u"t.exe"};
    desk.Commands.ExecuteCommandLine(5, u"t.exe 1");
    EXPECT_THAT(desk.Starter.Started, ElementsAre(u"[t.exe][ 1]"));
    EXPECT_THAT(desk.Calls, ElementsAre("sound 1"));
    EXPECT_THAT(desk.Starter.Failures, IsEmpty());
    desk.Starter.Error = 2;
    desk.Commands.ExecuteCommandLine(5, u"t.exe 1");
    const std::u16string text =
        u"error 2\n\nCommand: t.exe 1\n\nSource Command: t.exe 1\n\nProcessed Command:\n"
        u"——————————————————————————————\nPath: [t.exe]\nCommand Line: [ 1]";
    EXPECT_THAT(desk.Starter.Failures,
                ElementsAre(FakeProgramStarter::Failure{5, text, u"Vellumbridge"}));
    EXPECT_EQ(desk.Macros.Log.Lines, std::vector{u"ERROR: " + text});
    EXPECT_THAT(desk.Calls, ElementsAre("sound 1"));
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "macros/command_start.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_fixture.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// What stands between « and » is a value.
CommandText Command(std::u16string_view text) {
    CommandText command;
    bool isValue = false;
    for (const char16_t c : text) {
        if (c == u'«' || c == u'»') {
            isValue = c == u'«';
        } else {
            command.Append({&c, 1}, isValue);
        }
    }
    return command;
}

class CommandSplitTest : public testing::Test {
  protected:
    CommandSplitTest() {
        files_.Folders = {u"C:",          u"C:\\Users",      u"C:\\My Files", u"C:\\My Files\\",
                          u"C:/My Files", u"\\\\srv\\share", u"C:\\win"};
        files_.Files = {u"C:\\My Files\\a b.exe",
                        u"C:/My Files/a b.exe",
                        u"C:\\My",
                        u"C:\\My Files\\x.txt",
                        u"C:\\My Files\\x.txt ",
                        u"tool.exe",
                        u"\\\\srv\\share\\t.exe",
                        u"C:\\win\\go.exe",
                        u"C:\\My Files\\evil.exe",
                        u"C:\\win\\go.exe x\\..\\..\\My Files\\evil.exe"};
        files_.Programs = {{u"notepad", u"C:\\win\\notepad.exe"},
                           {u"notepad.exe", u"C:\\win\\notepad.exe"},
                           {u"run", u"D:\\run.BAT"},
                           {u"cmd", u"C:\\win\\cmd.exe"}};
        files_.Variables = {{u"windir", u"C:\\win"}, {u"files", u"C:\\My Files"}, {u"A", u"%B%"}};
    }
    // Path and parameters in brackets; "none" when the shell isn't asked.
    std::u16string Split(std::u16string_view command) const {
        const CommandParts parts = SplitCommandLine(Command(command), files_);
        return parts.IsThere ? Concat(u"[", parts.Path, u"][", parts.Parameters, u"]") : u"none";
    }

    FakeProgramStarter files_;
};

TEST_F(CommandSplitTest, CommandLinesAreReadAsWindowsUsersWriteThem) {
    ExpectTexts(
        {{u"C:\\My Files\\a b.exe", u"[C:\\My Files\\a b.exe][]"},
         {u"C:\\My Files\\a b.exe /x \"C:\\y\"", u"[C:\\My Files\\a b.exe][ /x \"C:\\y\"]"},
         {u"C:/My Files/a b.exe C:/y", u"[C:\\My Files\\a b.exe][ C:/y]"},
         {u"C:\\My Files\\none.exe 1", u"[C:\\My][ Files\\none.exe 1]"},
         {u"C:\\My Files\\x.txt  y", u"[C:\\My Files\\x.txt][  y]"},  // a blank ends no name
         {u" tool.exe/a\r\n", u"[tool.exe][/a]"},
         {u"\"tool.exe\" a", u"[tool.exe][ a]"},
         {u"\"C:\\My Files\\a b.exe\" /a \"b c\\\\\" \"d",
          u"[C:\\My Files\\a b.exe][ /a \"b c\\\\\" \"d]"},
         {u"\"%files%\"\\x.txt /a", u"[C:\\My Files\\x.txt][ /a]"},
         {u"%windir%\\go.exe %windir% 100% %no% %A%", u"[C:\\win\\go.exe][ C:\\win 100% %no% %B%]"},
         {u"%files%\\x.txt", u"[C:\\My Files\\x.txt][]"},
         {u"notepad.exe C:\\My Files\\x.txt", u"[C:\\win\\notepad.exe][ C:\\My Files\\x.txt]"},
         {u"\"notepad\" a", u"[C:\\win\\notepad.exe][ a]"},
         {u"C:\\My Files", u"[C:\\My Files][]"},
         {u"\\\\srv\\share\\t.exe -1", u"[\\\\srv\\share\\t.exe][ -1]"},
         {u"C:\\gone\\..\\x tool", u"[C:\\gone\\..\\x tool][]"},
         {u"HTTPS://x/y z", u"[HTTPS://x/y z][]"},
         {u"\"mailto:a b\"", u"[mailto:a b][]"},
         {u"shell:Common Startup", u"[shell:Common Startup][]"},
         {u"lt:x tool.exe", u"[lt:x tool.exe][]"},
         {u"nobody knows", u"[nobody knows][]"},
         {u"nobody \"knows\"", u"none"},
         {u" \t", u"none"}},
        [this](auto command) { return Split(command); });
}

TEST_F(CommandSplitTest, AValueStaysOneArgument) {
    ExpectTexts(
        {{u"notepad «a»", u"[C:\\win\\notepad.exe][ a]"},
         {u"notepad «a b\" /c «\\\\»", u"[C:\\win\\notepad.exe][ \"a b\\\" /c \\\\\\\\\"]"},
         {u"notepad \"«a b\\\" c\\»\" d", u"[C:\\win\\notepad.exe][ \"a b\\\\\\\" c\\\\\" d]"},
         {u"notepad \"C:\\«\" /x»\"", u"[C:\\win\\notepad.exe][ \"C:\\\\\\\" /x\"]"},
         {u"notepad C:\\«a b».txt y", u"[C:\\win\\notepad.exe][ \"C:\\a b.txt\" y]"},
         {u"notepad \"C:\\x\"\\«a b»", u"[C:\\win\\notepad.exe][ \"C:\\x\"\\\\\"a b\"]"},
         {u"notepad \"a\"«b c»\"d e\" f", u"[C:\\win\\notepad.exe][ \"ab cd e\" f]"},
         {u"notepad /x:«a&b\\» z", u"[C:\\win\\notepad.exe][ /x:\"a&b\\\\\" z]"},
         {u"notepad «C:\\»\"a b\"", u"[C:\\win\\notepad.exe][ C:\\\\\"a b\"]"},
         {u"notepad «%windir%» %«windir»%", u"[C:\\win\\notepad.exe][ \"%windir%\" %windir%]"}},
        [this](auto command) { return Split(command); });
}

TEST_F(CommandSplitTest, AValueStartsNoOtherProgram) {
    ExpectTexts({{u"«C:\\My Files\\x.txt»", u"[C:\\My Files\\x.txt][]"},
                 {u"« \"C:\\My Files\\x.txt\" »", u"[C:\\My Files\\x.txt][]"},
                 {u"\"«C:\\My Files»\"", u"[C:\\My Files][]"},
                 {u"«C:\\My Files\\a b.exe /x»", u"none"},
                 {u"«notepad»", u"none"},
                 {u"«notepad x» y", u"none"},
                 {u"\"«tool.exe\" x»\"", u"none"},
                 {u"«C:\\My Files»\\x.txt y", u"[C:\\My Files\\x.txt][ y]"},
                 {u"«C:\\My Files\\x.txt» y", u"[C:\\My Files\\x.txt][ y]"},
                 {u"C:\\My Files\\«evil.exe /c».txt", u"[C:\\My][ \"Files\\evil.exe /c.txt\"]"},
                 {u"C:\\Users\\«..\\My Files\\evil.exe»x", u"none"},
                 {u"C:\\My Files\\«evil.exe».txt", u"[C:\\My][ Files\\evil.exe.txt]"},
                 {u"%windir%\\go.exe «x\\..\\..\\My Files\\evil.exe»",
                  u"[C:\\win\\go.exe][ \"x\\..\\..\\My Files\\evil.exe\"]"},
                 {u"«%windir%\\go.exe»", u"none"}},
                [this](auto command) { return Split(command); });
}

TEST_F(CommandSplitTest, AValueStaysWithinItsPartOfAnAddress) {
    ExpectTexts(
        {{u"https://x/?q=«a&b=\"ж\" %20#»", u"[https://x/?q=a%26b%3D%22%D0%B6%22%20%2520%23][]"},
         {u"https://x/«a/b?c d\\»#«/»", u"[https://x/a/b%3Fc%20d%5C#%2F][]"},
         {u"https://x/«http://y/?z=1 2»", u"[https://x/http://y/?z=1%202][]"},
         {u"https://«y.de/?a=%20%&b#c\" -x»", u"[https://y.de/?a=%20%25&b#c%22%20-x][]"},
         {u"« https://ж.de/a b\\ »", u"[https://ж.de/a%20b/][]"},
         {u"mailto:«a@b.c?attach=d»", u"[mailto:a@b.c%3Fattach=d][]"},
         {u"www.x.de/?«a b»", u"[www.x.de/?a%20b][]"},
         {u"shell:«Common \"Startup»", u"[shell:Common Startup][]"},
         {u"«note: a b»", u"none"}},
        [this](auto command) { return Split(command); });
}

TEST_F(CommandSplitTest, AValueForTheCommandProcessorHoldsNoneOfItsSigns) {
    ExpectTexts(
        {{u"run «a&b|c^d%PATH%!e!\"<f>»", u"[D:\\run.BAT][ \"a b c d PATH  e   f \"]"},
         {u"run \"«(x86)&calc»\"", u"[D:\\run.BAT][ \"(x86) calc\"]"},
         {u"cmd /c \"echo «a\" & calc»\"", u"[C:\\win\\cmd.exe][ /c \"echo a    calc\"]"},
         {u"cmd /c if x (echo «) else (calc») & y",
          u"[C:\\win\\cmd.exe][ /c if x (echo \"  else  calc\") & y]"},
         {u"cmd /c echo x>C:\\«a b»&y", u"[C:\\win\\cmd.exe][ /c echo x>\"C:\\a b\"&y]"},
         {u"notepad C:\\y\\CMD.EXE/c «a&b»", u"[C:\\win\\notepad.exe][ C:\\y\\CMD.EXE/c \"a b\"]"}},
        [this](auto command) { return Split(command); });
}

TEST_F(CommandSplitTest, ALongCommandCostsFewLooksAtTheDisk) {
    std::u16string folders;
    for (int i = 0; i < 10000; ++i) {
        folders += u"\\..C:\\a b\"«%";
    }
    for (const std::u16string_view front :
         {u"C:\\win\\go.exe ", u"\\\\dead\\share\\", u"\\\\srv\\share\\", u"x", u"«x"}) {
        files_.Asked = 0;
        Split(Concat(front, folders));
        Split(Concat(front, std::u16string(40000, u'x')));
        EXPECT_LT(files_.Asked, 2000) << Utf16ToUtf8(front);
    }
}

class CommandStartTest : public testing::Test, protected DeliveryFixture {};

TEST_F(CommandStartTest, ValuesOfMacrosAreMarkedWhereverTheyStand) {
    Starter.Programs = {{u"go", u"go.exe"}};
    Phrases.Add("p.vellumbridge", u"go %SELECTED_TEXT% %CLIPBOARD_TEXT%%DAY%%CURSOR_POS%",
                kDataTypeExec);
    Macros.Clock.Local.Day = 7;
    Delivery.DeliverPhrase(Phrases.Folder.Path() / "p.vellumbridge", 7,
                           {.ClipboardText = u"a\r\n\"%DAY%\uFDD1 /x", .SelText = u"b\rc"});
    EXPECT_THAT(Starter.Started, ElementsAre(u"[go.exe][ \"b c\" \"a \\\"7 /x7\"]"));
}

TEST_F(CommandStartTest, AFailureIsExplainedInATextThatFitsAScreen) {
    EXPECT_TRUE(Commands.ExecuteCommandLine(7, Command(u"any")));
    EXPECT_THAT(Starter.Told, IsEmpty());
    Starter.Fault = SystemError{5, u"denied"};
    EXPECT_FALSE(Commands.ExecuteCommandLine(7, Command(u"\"a b\" c")));
    EXPECT_THAT(Starter.Told.back(),
                testing::StartsWith(
                    "denied\n\nCommand: \"a b\" c\n\nSource Command: \"a b\" c\n\nProcessed"));
    EXPECT_THAT(Starter.Told.back(), testing::EndsWith("\nPath: [a b]\nCommand Line: [ c]"));
    EXPECT_FALSE(Commands.ExecuteCommandLine(7, Command(Concat(u"«", std::u16string(9999, u'x')))));
    EXPECT_THAT(Starter.Told.back(), testing::StartsWith("not found\n"));
    EXPECT_LT(Starter.Told.back().size(), 2000U);
    EXPECT_THAT(Starter.Told.back(), testing::Not(HasSubstr(std::string(101, 'x'))));
    EXPECT_EQ(Starter.Started.size(), 2U);
}

}  // namespace
}  // namespace vbr

// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "base/text.h"
#include "phrases/command_document.h"

namespace vbr {
namespace {

constexpr SystemTime kNow = {
    .Year = 2026, .Month = 11, .Day = 22, .Hour = 1, .Minute = 2, .Second = 3};
const std::string kDate = "DateUsage=\"2026|11|22|1|2|3\"";

VBRCommand Parsed(const std::string& xml) {
    VBRCommand record;
    EXPECT_EQ(ParseCommand(record, xml), CommandReadResult::Ok) << xml;
    return record;
}

std::string Used(std::string xml) {
    VBRCommand record;
    EXPECT_EQ(EditUsage(xml, 1, kNow, record), CommandReadResult::Ok) << xml;
    return xml;
}

// The document with what the record says after the change.
template <typename Change>
std::string Saved(std::string xml, Change change) {
    VBRCommand record = Parsed(xml);
    change(record);
    EXPECT_EQ(EditCommand(xml, FieldsOf(record)), CommandReadResult::Ok);
    EXPECT_EQ(FieldsOf(Parsed(xml)), FieldsOf(record)) << xml;
    return xml;
}

TEST(CommandEdit, AUseChangesCountAndDateAndNoOtherByte) {
    const std::string rest =
        ">\n<MenuName>n</MenuName>&copy; <!-- UsageCount=\"1\" -->\r\n"
        "<New UsageCount='1'/><Cmd>&#13;\n</Cmd><Cmd/></VBRCommand >\t<?end?>";
    const std::pair<std::string, std::string> cases[] = {
        {"\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <VBRCommand/> --><VBRCommand\n\tNew='a>\"b'\n\t"
         "UsageCount = '41'  DateUsage=\"2020|1\" Later=\"1\"\n",
         "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <VBRCommand/> --><VBRCommand\n\tNew='a>\"b'\n\t"
         "UsageCount = '42'  DateUsage=\"2026|11|22|1|2|3\" Later=\"1\"\n"},
        {"<a><VBRCommand/></a><VBRCommand",
         "<a><VBRCommand/></a><VBRCommand UsageCount=\"1\" " + kDate},
        {"<VBRCommand UsageCount=\"-7\"\t", "<VBRCommand UsageCount=\"1\" " + kDate + "\t"},
        {"<VBRCommand UsageCount=9 Odd= ", "<VBRCommand " + kDate + " UsageCount=10 Odd= "},
        {"<VBRCommand a=\"<!--&\" UsageCount=\"2147483647\"",
         "<VBRCommand a=\"<!--&\" UsageCount=\"2147483647\" " + kDate},
    };
    for (const auto& [before, after] : cases) {
        EXPECT_EQ(Used(before + rest), after + rest);
    }
}

TEST(CommandEdit, ASaveKeepsWhatTheReaderDoesNotKnow) {
    const std::string before =
        "<!-- mine -->\n<VBRCommand Color=\"red\" Excluded=\"1\" UsageCount=\"7\""
        " DisabledIsNoHasSelection=\"0\" UseTitleOnly=\"0\" SortID=\"0\" FlagsMenu=\"0\">\n"
        "\t<Cmd lang=\"en\"> <![CDATA[old]]><!-- why --></Cmd>\n\t<?note?>text\n"
        "\t<DataType>MARKDOWN</DataType><MenuName>n</MenuName><Icon>i</Icon>\n</VBRCommand>\n";
    const std::string after =
        "<!-- mine -->\n<VBRCommand Color=\"red\" UsageCount=\"7\""
        " DisabledIsNoHasSelection=\"0\" UseTitleOnly=\"0\" SortID=\"0\" FlagsMenu=\"2\">\n"
        "\t<Hint>a &amp; b</Hint>\n"
        "\t<Cmd lang=\"en\">&#x09;new<!-- why --></Cmd>\n\t<?note?>text\n"
        "\t<DataType>MARKDOWN</DataType><MenuName>n</MenuName><Icon>i</Icon>\n</VBRCommand>\n";
    EXPECT_EQ(Saved(before,
                    [](VBRCommand& record) {
                        record.SetEnabled(true);
                        record.FlagsMenu = kSeparatorAfter;
                        record.Cmd = u"\tnew";
                        record.ToolTipText = u"a & b";
                    }),
              after);
    EXPECT_EQ(Saved(after, [](VBRCommand&) {}), after);
}

TEST(CommandEdit, AnyTextTakesThePlaceOfAnyOther) {
    for (const std::string content :
         {"/>", ">a</Cmd>", "> <![CDATA[a]]>b</Cmd>", "> <!--c--> </Cmd>", ">a<b>c</b>d</Cmd>"}) {
        for (const std::u16string_view text : {u"", u" \r\n", u"a&<", u"&gt;"}) {
            Saved("<VBRCommand><MenuName>n</MenuName><Cmd" + content + "</VBRCommand>",
                  [text](VBRCommand& record) { record.Cmd = text; });
        }
    }
}

TEST(CommandEdit, ATextIsReadAsItsFileHoldsItAlsoWhenThatHasToChange) {
    const std::string twice =
        "<VBRCommand><MenuName>&amp;lt;b&amp;gt;</MenuName><Cmd>&amp;quote;</Cmd></VBRCommand>";
    EXPECT_EQ(Parsed(twice).Text, u"<b>");
    EXPECT_EQ(Used(twice).find("ExactText"), std::string::npos);
    const std::string once =
        Saved(twice, [](VBRCommand& record) { record.ToolTipText = u"write &lt; for <"; });
    EXPECT_EQ(Parsed(Used(once)).ToolTipText, u"write &lt; for <");
    EXPECT_EQ(Parsed(Used(once)).Text, u"<b>");
    EXPECT_EQ(Parsed(once).Cmd, u"\"");
}

}  // namespace
}  // namespace vbr

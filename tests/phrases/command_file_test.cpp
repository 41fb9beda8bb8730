// SPDX-License-Identifier: MIT
#include "phrases/command_file.h"

#include <gtest/gtest.h>
#include <memory>

#include "base/text.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"

namespace vbr {
namespace {

using namespace std::string_literals;

const std::string kHandWritten =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\" ?>\r\n"
    "<VBRCommand Excluded=\"1\" UsageCount=\"7\" DisabledIsNoHasSelection=\"1\" UseTitleOnly=\"1\" "
    "SortID=\"4294967295\" FlagsMenu=\"3\" DateUsage=\"2024|2|29|23|5|9\">\r\n"
    "    <MenuName>  Привет,  &quot;мир&quot; &amp; co \U0001F642 </MenuName>\r\n"
    "    <DataType>TEXT</DataType>\r\n"
    "    <Cmd>&#x0D;&#x0A;one  two&#x09;&lt;b&gt;&#x0D;&#x0A;&apos;&amp;#x41;&apos;</Cmd>\r\n"
    "    <Hint>  a hint  </Hint>\r\n"
    "</VBRCommand>\r\n";

std::string Document(std::string_view attributes, std::string_view children) {
    return "<VBRCommand " + std::string(attributes) + ">" + std::string(children) + "</VBRCommand>";
}

VBRCommand Parsed(const std::string& xml) {
    VBRCommand record;
    EXPECT_EQ(ParseCommand(record, xml), CommandReadResult::Ok) << xml;
    return record;
}

TEST(CommandFile, HandWrittenFileSurvivesReadAndWriteByteForByte) {
    EXPECT_EQ(CommandToXml(Parsed(kHandWritten)), kHandWritten);
}

TEST(CommandFile, EveryTextComesBackUnitForUnit) {
    std::u16string controls;
    for (char16_t c = 1; c < 0x100; ++c) {
        controls += c;
    }
    for (const std::u16string& text :
         {std::u16string(u""), std::u16string(u" "), std::u16string(u"\r\n\r\n"),
          std::u16string(u"\t"), std::u16string(u"]]>&amp;lt;&#x2014;&#x"),
          std::u16string(u"<!-- no comment -->"),
          std::u16string(u"&lt;b&gt; is &quote;bold&quote;"), controls}) {
        VBRCommand record;
        record.Text = u"title";
        record.Cmd = text;
        record.ToolTipText = text;
        const VBRCommand back = Parsed(CommandToXml(record));
        EXPECT_EQ(back.Cmd, text);
        EXPECT_EQ(back.ToolTipText, text);
    }
}

TEST(CommandFile, NumbersAndWordsOutOfRangeAreCorrected) {
    // Attributes and type, then what they become: enabled, uses, type, and whether a date is set.
    const std::tuple<std::string, std::string, bool, int, std::int32_t, bool> cases[] = {
        {"UsageCount=\"-5\" Excluded=\"2\"", "exec", false, 0, kDataTypeExec, false},
        {"UsageCount=\"99999999999\" Excluded=\"0\"", "Rtf", true, 2147483647, kDataTypeRtf, false},
        {"DateUsage=\"0|1|1|1|1|1\"", "HTML", true, 0, kDataTypeText, false},
        {"DateUsage=\"2020\" UsageCount=\"x\"", "", true, 0, kDataTypeText, true},
    };
    for (const auto& [attributes, type, enabled, uses, kind, dateIsSet] : cases) {
        const VBRCommand record =
            Parsed(Document(attributes, "<MenuName>n</MenuName><DataType>" + type + "</DataType>"));
        EXPECT_EQ(record.IsEnabled(), enabled) << attributes;
        EXPECT_EQ(record.UsageCount, uses) << attributes;
        EXPECT_EQ(record.DataType, kind) << type;
        EXPECT_EQ(CommandToXml(record).find("DateUsage") != std::string::npos, dateIsSet)
            << attributes;
    }
}

TEST(CommandFile, TitleAndHintAreCut) {
    const VBRCommand record =
        Parsed(Document("", "<MenuName>" + std::string(70, 'a') + "</MenuName><Hint>" +
                                std::string(600, 'b') + "</Hint>"));
    EXPECT_EQ(record.Text, std::u16string(60, u'a'));
    EXPECT_EQ(record.ToolTipText, std::u16string(512, u'b'));
}

TEST(CommandFile, WhatIsNoWholePhraseIsRefused) {
    const std::pair<std::string, CommandReadResult> cases[] = {
        {"", CommandReadResult::NotXml},
        {"<Other><MenuName>n</MenuName></Other>", CommandReadResult::NotXml},
        {Document("", "<Cmd>no title</Cmd>"), CommandReadResult::NoTitle},
        {Document("", "<MenuName></MenuName>"), CommandReadResult::NoTitle},
        {Document("", "<MenuName>caf\xE9</MenuName>"), CommandReadResult::NotUtf8},
        {Document("", "<MenuName> <![CDATA[\t]]></MenuName>"), CommandReadResult::NoTitle},
        {"\xFF\xFE<\0V\0"s, CommandReadResult::NotUtf8},
        {Document("", "<MenuName>n</MenuName><Cmd>a\0b</Cmd>"s), CommandReadResult::NotXml},
        {Document("", "<MenuName>n</MenuName><Cmd>&#x</Cmd><!--"), CommandReadResult::NotXml},
    };
    for (const auto& [xml, result] : cases) {
        VBRCommand record;
        EXPECT_EQ(ParseCommand(record, xml), result) << xml;
    }
}

std::string Repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

// The parser recurses and looks attributes up one by one: it would die of these, or take hours.
TEST(CommandFile, MarkupThatWouldHarmTheParserIsRefused) {
    constexpr std::size_t kMany = 100000;
    const std::string deep = Repeated("<a>", kMany);
    std::string attributes;
    for (int i = 0; i < 200000; ++i) {
        attributes += " a" + std::to_string(i) + "=''";
    }
    const std::string cases[] = {
        deep + Repeated("</a>", kMany),
        Document("", "<MenuName>n</MenuName><Cmd>" + deep),
        Document(attributes, "<MenuName>n</MenuName>"),
        Document("", "<MenuName>n</MenuName>" + Repeated("<a b='/>'/>", kMany)),
        // What looks like text to a scan must not be markup to the parser.
        Document("", "<MenuName a='<!--' b=\"]]>\">n</MenuName>" + deep),
        Document("", "<MenuName>n</MenuName><!--><Cmd> -->" + deep + "</Cmd>"),
        "<?xml x\" version=\"><!--\" ?>" + deep,
        Document("", "<?xml x\" version=\"><!--\" ?>" + deep),
        "</a></a><a " + deep,
    };
    for (const std::string& xml : cases) {
        VBRCommand record;
        const CommandReadResult result = ParseCommand(record, xml);
        EXPECT_TRUE(result == CommandReadResult::TooMuchMarkup ||
                    result == CommandReadResult::NotXml)
            << xml.substr(0, 100);
    }
}

TEST(CommandFile, MarkupInATextOrCommentIsNoMarkup) {
    const std::string page = Repeated("<p a='b'>it's & <br>", 20000);
    const VBRCommand data = Parsed(Document("", "<MenuName>n</MenuName><Cmd><![CDATA[" + page +
                                                    "]]></Cmd><!--" + page + "--><Hint>h</Hint>"));
    EXPECT_EQ(data.Cmd, Utf8ToUtf16(page));
    EXPECT_EQ(data.ToolTipText, u"h");
    VBRCommand escaped;
    escaped.Text = u"n";
    escaped.Cmd = data.Cmd;
    EXPECT_EQ(Parsed(CommandToXml(escaped)).Cmd, data.Cmd);
    // A comment isn't taken for the text of an element of nothing but white space.
    EXPECT_EQ(Parsed(Document("", "<MenuName>n</MenuName><!--<Cmd>" + Repeated("<a>", 100000) +
                                      "--><Cmd> </Cmd>"))
                  .Cmd,
              u" ");
}

TEST(CommandFile, AReferenceThatIsNoneStaysAsItWasWritten) {
    const std::pair<std::string, std::u16string> cases[] = {
        {"Tom & Jerry &", u"Tom & Jerry &"},
        {"R&D &nbsp;&#;&#x;&#12 &#xG;", u"R&D &nbsp;&#;&#x;&#12 &#xG;"},
        {"&amp;amp;|&#38;lt;|&#x26;", u"&amp;|<|&"},
        {"a&#xFFFFFFFF;&#x110000;&#xD800;b", u"a\uFFFD\uFFFDb"},
        {"a&#x0;b", std::u16string(u"a\0b", 3)},
    };
    for (const auto& [text, expected] : cases) {
        const VBRCommand record =
            Parsed(Document("", "<MenuName>n</MenuName><Cmd>" + text + "</Cmd>"));
        EXPECT_EQ(record.Cmd, expected) << text;
        EXPECT_EQ(Parsed(CommandToXml(record)).Cmd, expected) << text;
    }
    // What looks like a comment's start in an attribute hides none.
    EXPECT_EQ(Parsed(Document("a='<!--'", "<MenuName>R&D</MenuName>")).Text, u"R&D");
}

TEST(CommandFile, TheFirstOfTwoCounts) {
    const VBRCommand record =
        Parsed(Document("SortID='1'", "<MenuName>a</MenuName><Cmd>1</Cmd><Cmd>2</Cmd><MenuName/>") +
               Document("SortID='2'", "<MenuName>b</MenuName>") + std::string(512, '\0'));
    EXPECT_EQ(record.Text, u"a");
    EXPECT_EQ(record.Cmd, u"1");
    EXPECT_EQ(record.SortID, 1U);
}

// A phrase that lost its end must not come back as a shorter phrase and be saved so.
TEST(CommandFile, FileCutAnywhereInTheDocumentIsRefused) {
    const std::size_t end = kHandWritten.rfind('>');
    for (std::size_t length = 0; length <= end; ++length) {
        VBRCommand record;
        EXPECT_NE(ParseCommand(record, kHandWritten.substr(0, length)), CommandReadResult::Ok)
            << length;
    }
}

TEST(CommandFile, GroupFileHoldsAttributesOnlyAndGivesThemBack) {
    VBRCommand group;
    group.Text = u"name of the folder";
    group.SortID = 9;
    group.FlagsMenu = kSeparatorBefore;
    group.SetDateUsage({.Year = 2020, .Month = 1, .Day = 1});
    group.Commands = std::make_unique<std::vector<VBRCommand>>();
    group.Commands->emplace_back();
    EXPECT_FALSE(group.StampDateUsage({.Year = 2021}));
    const std::string xml = CommandToXml(group);
    EXPECT_EQ(xml,
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\" ?>\r\n"
              "<VBRCommand UsageCount=\"0\" DisabledIsNoHasSelection=\"0\" UseTitleOnly=\"0\" "
              "SortID=\"9\" FlagsMenu=\"1\" />\r\n");
    VBRCommand back;
    EXPECT_EQ(ParseCommand(back, xml), CommandReadResult::NoTitle);
    EXPECT_EQ(back.SortID, 9U);
}

TEST(CommandFile, FailedWriteIsLoggedAndTold) {
    NativeFileStore store;
    store.ReplaceError = SystemError{5, u"Access denied."};
    MemoryLog log;
    CommandFiles files(store, log);
    std::u16string told;
    EXPECT_FALSE(files.WriteCommandFile(
        {}, "nowhere.vellumbridge",
        [&](const std::filesystem::path& path, std::u16string_view error, const VBRCommand&) {
            told = Concat(path.u16string(), u"|", error);
        }));
    EXPECT_EQ(told, u"nowhere.vellumbridge|ERROR: code 5, Access denied.");
    EXPECT_TRUE(log.Tells(u"Access denied."));
}

}  // namespace
}  // namespace vbr

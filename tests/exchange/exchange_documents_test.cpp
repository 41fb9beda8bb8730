// SPDX-License-Identifier: MIT
#include "exchange/exchange_documents.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include "base/text.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

WPQuery Parsed(std::string_view document) {
    WPQuery query;
    EXPECT_TRUE(ParseQuery(document, query)) << document;
    return query;
}

TEST(QueryDocument, AllNodesAreReadInAnyOrder) {
    const WPQuery query = Parsed(
        "<?xml version=\"1.0\"?><!-- x --><WPQuery POINT_Y='-7' POINT_X='12' HWND_Active='1' "
        "HWND_Capture='2' HWND_Caret='3' HWND_Focus='4' HWND_MenuOwner='5'>"
        "<SelText StateSelText='2'> a &lt;b&gt;&#x0D;&#x0A;  \xD0\x94\xF0\x9F\x99\x82 </SelText>"
        "<HKLHoword>2</HKLHoword><HWND>65552</HWND><AppPath>C:\\a&amp;b.exe</AppPath>"
        "<WindowClassName>Edit</WindowClassName><HKLLoword>1</HKLLoword></WPQuery>");
    EXPECT_EQ(query.GuiThreadInfo, (GuiThreadWindows{1, 4, 2, 5, 3}));
    EXPECT_EQ(query.PointX, 12);
    EXPECT_EQ(query.PointY, -7);
    EXPECT_EQ(query.SelText, u" a <b>\r\n  Д🙂 ");
    EXPECT_EQ(query.StateSelText, kSelTextExtracted);
    EXPECT_EQ(query.TargetWindow, 65552U);
    EXPECT_EQ(query.AppPath, u"C:\\a&b.exe");
    EXPECT_EQ(query.WindowClassName, u"Edit");
    EXPECT_EQ(query.Hkl, 0x00010002U);
}

TEST(QueryDocument, WhatIsMissingKeepsItsInitialValue) {
    const WPQuery query = Parsed("<WPQuery/>");
    EXPECT_EQ(query.PointX, -1);
    EXPECT_EQ(query.PointY, -1);
    EXPECT_EQ(query.Hkl, 0U);
    EXPECT_EQ(query.StateSelText, kSelTextNone);
    EXPECT_EQ(Parsed("<WPQuery><SelText/></WPQuery>").StateSelText, -1);
    EXPECT_EQ(Parsed("<WPQuery><HKLLoword>1</HKLLoword></WPQuery>").Hkl, 0U);
    EXPECT_EQ(Parsed("<WPQuery><HKLLoword>1</HKLLoword><HKLHoword/></WPQuery>").Hkl, 0U);
}

TEST(QueryDocument, NumbersThatCannotBeAreAsIfMissing) {
    const WPQuery query = Parsed(
        "<WPQuery POINT_X='99999999999' POINT_Y='x' HWND_Focus='-2' HWND_Caret='9999999999'>"
        "<HWND>99999999999999999999999</HWND><HKLLoword>65537</HKLLoword>"
        "<HKLHoword>-1</HKLHoword><SelText StateSelText='7'>a</SelText></WPQuery>");
    EXPECT_EQ(query.PointX, -1);
    EXPECT_EQ(query.PointY, 0);
    EXPECT_EQ(query.GuiThreadInfo.Focus, 0xFFFFFFFEU);
    EXPECT_EQ(query.GuiThreadInfo.Caret, 0U);
    EXPECT_EQ(query.TargetWindow, 0U);
    EXPECT_EQ(query.Hkl, 0x0001FFFFU);
    EXPECT_EQ(query.StateSelText, 7);
}

TEST(QueryDocument, ACutDocumentTellsWhatStandsBeforeTheCut) {
    for (const std::string cut : {"<SelText StateSelText='2'>ab", "<WindowClassName>b\xF3"}) {
        // A byte that is no character is replaced.
        const WPQuery query = Parsed("<WPQuery><AppPath>a\xF3</AppPath>" + cut);
        EXPECT_EQ(query.AppPath, u"a\xFFFD");
    }
}

TEST(QueryDocument, OtherTextsAreNoQuery) {
    const std::string nested(100'000, '<');
    std::string deep;
    for (int i = 0; i < 100'000; ++i) {
        deep += "<a>";
    }
    for (const std::string& text : {std::string(), std::string("no xml"),
                                    std::string("<WPAnswer/>"), std::string("<a><WPQuery/></a>"),
                                    std::string("\xFF\xFE<\0W\0", 6), nested, "<WPQuery>" + deep}) {
        WPQuery query;
        EXPECT_FALSE(ParseQuery(text, query)) << text.substr(0, 30);
    }
}

WPMenuItem Group(const std::u16string& text, std::int32_t flags) {
    return {.Children = std::make_unique<WPMenuGroup>(), .Text = text, .Flags = flags};
}

TEST(AnswerDocument, ItemsStandInTheirFormsAndOrder) {
    MemoryLog log;
    WPAnswer answer;
    answer.Sound = true;
    WPMenuItem& group = answer.Items.emplace_back(Group(u"group", 3));
    group.Children->push_back({.Text = u"в & <&#x41;>",
                               .ToolTipText = u"tip",
                               .DataType = 1,
                               .Flags = 3,
                               .CMDID = 7,
                               .LCID = 1033});
    group.Children->push_back(Group(u"none", 2));
    answer.Items.push_back({.Text = u"a separator's label"});
    EXPECT_EQ(AnswerDocument(answer, log),
              "<?xml version=\"1.0\" ?>\r\n"
              "<WPAnswer Sound=\"1\" ShowToolTips=\"1\" ForegroundTopMostWnd=\"0\">\r\n"
              "    <Group>\r\n"
              "        <Group Default=\"1\">\r\n"
              "            group\r\n"
              "            <Command Flags=\"3\" CMDID=\"7\" DataType=\"1\" LCID=\"1033\">\r\n"
              "                \xD0\xB2 &amp; &lt;&amp;#x41;&gt;\r\n"
              "                <ToolTipText>tip</ToolTipText>\r\n"
              "            </Command>\r\n"
              "            <Group Default=\"0\">none</Group>\r\n"
              "        </Group>\r\n"
              "        <Command Flags=\"0\" CMDID=\"0\" DataType=\"0\" LCID=\"0\"></Command>\r\n"
              "        <MenuPerColumn>-1</MenuPerColumn>\r\n"
              "    </Group>\r\n"
              "</WPAnswer>\r\n");
    EXPECT_EQ(log.Lines, std::vector<std::u16string>{u"Oops! Group is empty"});
}

TEST(AnswerDocument, TextsAreCutAndNoColumnsLeaveTheElementOut) {
    MemoryLog log;
    WPAnswer answer;
    answer.MenuPerColumn = 0;
    answer.Items.push_back({.Text = std::u16string(119, u'a') + u"🙂",
                            .ToolTipText = std::u16string(1030, u't'),
                            .CMDID = 1});
    TiXmlDocument document;
    document.Parse(AnswerDocument(answer, log).c_str());
    const TiXmlHandle root(&document);
    EXPECT_EQ(root.FirstChild("WPAnswer").FirstChild("Group").FirstChild("MenuPerColumn").ToNode(),
              nullptr);
    const TiXmlElement* command =
        root.FirstChild("WPAnswer").FirstChild("Group").FirstChild("Command").ToElement();
    ASSERT_TRUE(command);
    EXPECT_EQ(std::count(command->GetText(), std::strchr(command->GetText(), 0), 'a'), 119);
    EXPECT_EQ(command->FirstChildElement("ToolTipText")->GetText(), std::string(1024, 't'));
}

}  // namespace
}  // namespace vbr

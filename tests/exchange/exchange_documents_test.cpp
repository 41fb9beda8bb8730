// SPDX-License-Identifier: MIT
#include "exchange/exchange_documents.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "exchange/query_writer.h"
#include "fakes/memory_log.h"

namespace vbr {
namespace {

WPQuery Parsed(std::string_view document) {
    WPQuery query;
    EXPECT_TRUE(ParseQuery(document, query)) << document;
    return query;
}

// All that a query says, to be compared at once.
auto AllOf(const WPQuery& query) {
    return std::tuple(query.AppPath, query.WindowClassName, query.TargetWindow, query.GuiThreadInfo,
                      query.Hkl, query.SelText, query.StateSelText, query.PointX, query.PointY);
}

TEST(QueryDocument, AllNodesAreReadInAnyOrder) {
    const WPQuery query = Parsed(
        "<?xml version=\"1.0\"?><!-- x --><WPQuery POINT_Y='-7' POINT_X='12' HWND_Active='1' "
        "HWND_Capture='2' HWND_Caret='3' HWND_Focus='4' HWND_MenuOwner='5'>"
        "<SelText StateSelText='2'> a &lt;b&gt;&#x0D;&#x0A;  \xD0\x94\xF0\x9F\x99\x82 </SelText>"
        "<HKLHoword>2</HKLHoword><HWND>65552</HWND><AppPath>C:\\a&amp;b.exe</AppPath>"
        "<WindowClassName>Edit</WindowClassName><HKLLoword>1</HKLLoword></WPQuery>");
    EXPECT_EQ(AllOf(query), AllOf({.AppPath = u"C:\\a&b.exe",
                                   .WindowClassName = u"Edit",
                                   .TargetWindow = 65552,
                                   .GuiThreadInfo = {1, 4, 2, 5, 3},
                                   .Hkl = 0x00010002,
                                   .SelText = u" a <b>\r\n  Д🙂 ",
                                   .StateSelText = kSelTextExtracted,
                                   .PointX = 12,
                                   .PointY = -7}));
}

TEST(QueryDocument, WhatIsMissingKeepsItsInitialValue) {
    EXPECT_EQ(AllOf(Parsed("<WPQuery/>")), AllOf({}));
    EXPECT_EQ(Parsed("<WPQuery><SelText/></WPQuery>").StateSelText, -1);
    EXPECT_EQ(Parsed("<WPQuery><HKLLoword>1</HKLLoword></WPQuery>").Hkl, 0U);
    EXPECT_EQ(Parsed("<WPQuery><HKLLoword>1</HKLLoword><HKLHoword/></WPQuery>").Hkl, 0U);
}

TEST(QueryDocument, NumbersThatCannotBeAreAsIfMissing) {
    const WPQuery query = Parsed(
        "<WPQuery POINT_X='99999999999' POINT_Y='x' HWND_Focus='-2' HWND_Caret='9999999999'>"
        "<HWND>99999999999999999999999</HWND><HKLLoword>65537</HKLLoword>"
        "<HKLHoword>-1</HKLHoword><SelText StateSelText='7'>a</SelText></WPQuery>");
    EXPECT_EQ(AllOf(query), AllOf({.GuiThreadInfo = {.Focus = 0xFFFFFFFE},
                                   .Hkl = 0x0001FFFF,
                                   .SelText = u"a",
                                   .StateSelText = 7,
                                   .PointX = -1,
                                   .PointY = 0}));
}

TEST(QueryDocument, ACutDocumentTellsWhatStandsBeforeTheCut) {
    // A byte that is no character is replaced.
    EXPECT_EQ(Parsed("<WPQuery><AppPath>a\xF3</AppPath><SelText StateSelText='2'>ab").AppPath,
              u"a\xFFFD");
}

TEST(QueryDocument, OtherTextsAreNoQuery) {
    std::string deep = "<WPQuery>";
    for (int i = 0; i < 100'000; ++i) {
        deep += "<a>";
    }
    for (const std::string& text : {std::string(), std::string("<a><WPQuery/></a>"),
                                    std::string("\xFF\xFE<\0W\0", 6), deep}) {
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
    const std::string document = AnswerDocument(answer, log);
    EXPECT_EQ(document.find("MenuPerColumn"), document.npos);
    EXPECT_NE(document.find(" " + std::string(119, 'a') + "\r\n"), document.npos);
    EXPECT_NE(document.find(">" + std::string(1024, 't') + "<"), document.npos);
}

// What the program reads of what the library writes.
WPQuery ReadBack(const QueryFacts& facts, std::size_t size = kQueryDocumentMax) {
    std::vector<char> buffer(size, 'x');
    WPQuery query;
    EXPECT_TRUE(WriteQueryDocument(facts, buffer.data(), buffer.size()));
    EXPECT_TRUE(ParseQuery(buffer.data(), query));
    return query;
}

WPQuery ReadBackSelection(std::u16string_view text, std::size_t size = kQueryDocumentMax) {
    return ReadBack({.SelText = text, .StateSelText = kSelTextExtracted}, size);
}

TEST(QueryWriter, EveryFactArrives) {
    const QueryFacts facts{.AppPath = u"C:\\A & B\\<Прил>.exe",
                           .WindowClassName = u"Edit",
                           .Target = 0x10010,
                           .GuiThreadInfo = {1, 2, 3, 4, 0xFFFFFFFE},
                           .Hkl = 0xF0020419,
                           .PointX = -1900,
                           .PointY = 5};
    EXPECT_EQ(AllOf(ReadBack(facts)),
              std::tuple(facts.AppPath, facts.WindowClassName, facts.Target, facts.GuiThreadInfo,
                         facts.Hkl, u"", kSelTextNone, facts.PointX, facts.PointY));
}

TEST(QueryWriter, SelectedTextArrivesAsItIs) {
    for (const std::u16string_view text :
         {u"one two", u" ", u"  a  b  ", u"a \r\n b", u"\r\n", u"\t", u"<a href=\"x\">&amp;</a>",
          u"]]>", u"&#65;", u"Ж߿ࠀ€🙂"}) {
        const WPQuery query = ReadBackSelection(text);
        EXPECT_EQ(query.SelText, text);
        EXPECT_EQ(query.StateSelText, kSelTextExtracted);
    }
}

TEST(QueryWriter, WhatIsNoCharacterIsReplacedOrLeftOut) {
    constexpr char16_t kText[] = {'a', 0xD800, 'b', 0xDC00, 'c', 0xFFFF,
                                  'd', 1,      'e', 0,      'f', 0xD83D};
    EXPECT_EQ(ReadBackSelection({kText, std::size(kText)}).SelText,
              u"a\uFFFDb\uFFFDc\uFFFDdef\uFFFD");
}

TEST(QueryWriter, ASelectionThatDoesNotFitIsToldAsUnknownAndNotCut) {
    const std::u16string text(1000, u'x');
    std::size_t size = 1;
    while (size < 4096 && ReadBackSelection(text, 1000 + size).SelText.empty()) {
        ++size;
    }
    EXPECT_EQ(ReadBackSelection(text, 1000 + size).SelText, text);
    EXPECT_EQ(ReadBackSelection(text, 1000 + size - 1).StateSelText, kSelTextFailed);
}

TEST(QueryWriter, RoomThatIsTooSmallIsNeverOverrun) {
    const std::u16string path(100, u'p');
    const QueryFacts facts{.AppPath = path};
    for (std::size_t size = 0; size < 300; ++size) {
        // The sanitizer guards the end.
        const auto buffer = std::make_unique<char[]>(size);
        EXPECT_FALSE(WriteQueryDocument(facts, buffer.get(), size)) << size;
    }
}

}  // namespace
}  // namespace vbr

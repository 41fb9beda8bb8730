// SPDX-License-Identifier: MIT
#include "exchange/query_writer.h"

#include <gtest/gtest.h>
#include <vector>

#include "exchange/exchange_documents.h"

namespace vbr {
namespace {

// What the program reads of what the library writes.
WPQuery ReadBack(const QueryFacts& facts, std::size_t size = kQueryDocumentMax) {
    std::vector<char> room(size, 'x');
    WPQuery query;
    EXPECT_TRUE(WriteQueryDocument(facts, room.data(), room.size()));
    EXPECT_TRUE(ParseQuery(room.data(), query));
    return query;
}

WPQuery ReadBackSelection(std::u16string_view text, std::size_t size = kQueryDocumentMax) {
    QueryFacts facts;
    facts.SelText = text;
    facts.StateSelText = kSelTextExtracted;
    return ReadBack(facts, size);
}

TEST(QueryWriter, EveryFactArrives) {
    QueryFacts facts;
    facts.AppPath = u"C:\\A & B\\<Прил>.exe";
    facts.WindowClassName = u"Edit";
    facts.Target = 0x10010;
    facts.GuiThreadInfo = {1, 2, 3, 4, 0xFFFFFFFE};
    facts.Hkl = 0xF0020419;
    facts.PointX = -1900;
    facts.PointY = 0;
    const WPQuery query = ReadBack(facts);
    EXPECT_EQ(query.AppPath, facts.AppPath);
    EXPECT_EQ(query.WindowClassName, facts.WindowClassName);
    EXPECT_EQ(query.TargetWindow, facts.Target);
    EXPECT_EQ(query.GuiThreadInfo, facts.GuiThreadInfo);
    EXPECT_EQ(query.Hkl, facts.Hkl);
    EXPECT_EQ(query.PointX, facts.PointX);
    EXPECT_EQ(query.PointY, facts.PointY);
    EXPECT_EQ(query.StateSelText, kSelTextNone);
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
    std::vector<char> room(4096);
    QueryFacts facts;
    facts.StateSelText = kSelTextExtracted;
    facts.SelText = text;
    ASSERT_TRUE(WriteQueryDocument(facts, room.data(), room.size()));
    const std::size_t whole = std::string_view(room.data()).size() + 1;
    EXPECT_EQ(ReadBackSelection(text, whole).SelText, text);
    const WPQuery tight = ReadBackSelection(text, whole - 1);
    EXPECT_EQ(tight.SelText, u"");
    EXPECT_EQ(tight.StateSelText, kSelTextFailed);
}

TEST(QueryWriter, RoomThatIsTooSmallIsNeverOverrun) {
    const std::u16string path(100, u'p');
    QueryFacts facts;
    facts.AppPath = path;
    for (std::size_t size = 0; size < 300; ++size) {
        // The sanitizer guards the end.
        const auto room = std::make_unique<char[]>(size);
        EXPECT_FALSE(WriteQueryDocument(facts, room.get(), size)) << size;
    }
}

}  // namespace
}  // namespace vbr

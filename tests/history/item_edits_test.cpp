// SPDX-License-Identifier: MIT
#include "history/item_edits.h"

#include <gtest/gtest.h>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"

namespace vbr {
namespace {

// An edit by its count: u and l turn the case, t trims, j joins.
class Edits : public testing::Test, protected HistoryFixture {
  protected:
    std::size_t Edit(char edit, std::size_t index = 0) {
        switch (edit) {
            case 'u':
                return edits_.ChangeItemCase(LetterCase::Upper, index) ? 1 : 0;
            case 'l':
                return edits_.ChangeItemCase(LetterCase::Lower, index) ? 1 : 0;
            case 't':
                return edits_.TrimItem(index);
            default:
                return edits_.JoinItem(index);
        }
    }
    // Adds the item, saved, with another format and a source.
    const CCHItem& Add(std::unique_ptr<CCHItem> item) {
        item->sourceUrl = u"http://a/";
        item->alternatives.push_back(ByteItem(CHF_HTML, "h"));
        HistoryFixture::Add(std::move(item));
        Save();
        return *Queue.GetItem(0);
    }
    // The RTF after the edit, and behind it the count.
    std::u16string Edited(char edit, std::string_view source) {
        const CCHItem& item = Add(ByteItem(CHF_RTF, source));
        const std::size_t count = Edit(edit);
        return Concat(Utf8ToUtf16(item.ByteText()), u" ", count);
    }

    FakeAnsiText ansi_;
    FakeLocale locale_;
    FakeRichTextEngine engine_;
    int saves_ = 0;
    ItemEdits edits_{{.Queue = Queue,
                      .Ansi = ansi_,
                      .Locale = locale_,
                      .Engine = engine_,
                      .Log = Log,
                      .RequestSave = [this] { ++saves_; }}};
};

TEST_F(Edits, TextIsTurnedTrimmedAndJoined) {
    const std::tuple<char, std::u16string_view, std::u16string_view, std::size_t> cases[] = {
        {'u', u"aЖ\r\n1", u"AЖ\r\n1", 1},   {'l', u"ABc", u"abc", 1},
        {'t', u" \t\na b\t\n ", u"a b", 6}, {'t', u"a\r\n", u"a\r", 1},
        {'t', u"\ra", u"\ra", 0},           {'t', u" \t", u"", 2},
        {'j', u"a\r\nb\r\nc", u"a b c", 2}, {'j', u"a\r\n\rb\n\rc", u"a \rb c", 2},
        {'j', u"a\nb\rc", u"a\nb\rc", 0},   {'j', u"\ta\r\nb\r\n", u"a b", 2}};
    for (const auto& [edit, before, after, count] : cases) {
        const CCHItem& item = Add(TextItem(before));
        EXPECT_EQ(Edit(edit), count) << edit << Utf16ToUtf8(before);
        EXPECT_EQ(item.WideText(), after) << edit << Utf16ToUtf8(before);
        EXPECT_EQ(item.Size(), after.size() * 2 + 2);
    }
    const CCHItem& ansi = Add(ByteItem(CHF_ANSI_TEXT, " caf\xE9\r\nx\n"));
    EXPECT_EQ(Edit('t'), 2U);
    EXPECT_EQ(Edit('j'), 1U);
    EXPECT_EQ(Edit('u'), 1U);
    EXPECT_EQ(ansi.ByteText(), "CAF\xE9 X");
    EXPECT_EQ(ansi.Size(), 7U);
}

TEST_F(Edits, AChangedItemIsUnsavedAndLosesWhatWasMadeOfItsOldText) {
    const CCHItem& item = Add(TextItem(u" a"));
    item.menuCaption = item.menuTip = u"old";
    const auto info = item.infoPath;
    ASSERT_EQ(Edit('j'), 0U);
    EXPECT_EQ(item.storeState, StoreState::Saved);
    EXPECT_EQ(item.sourceUrl, u"http://a/");
    EXPECT_EQ(saves_, 0);
    ASSERT_EQ(Edit('t'), 1U);
    EXPECT_EQ(item.storeState, StoreState::NotStored);
    EXPECT_TRUE(item.menuCaption.empty() && item.menuTip.empty() && item.dataPath.empty());
    EXPECT_TRUE(item.sourceUrl.empty() && item.alternatives.empty());
    EXPECT_EQ(item.infoPath, info);
    EXPECT_EQ(saves_, 1);
}

TEST_F(Edits, RtfKeepsItsBufferAndFormatsWhenItsEndsGo) {
    EXPECT_EQ(Edited('t', "{  \\1a \\2b \n\n}"), u"{\\1a \\2b } 4");  // blanks go first
    EXPECT_EQ(Queue.GetItem(0)->Size(), 15U);
    EXPECT_EQ(Queue.GetItem(0)->alternatives.size(), 1U);
    EXPECT_EQ(Queue.GetItem(0)->sourceUrl, u"http://a/");
    EXPECT_EQ(Edited('t', "{\t a\t}"), u"{\t a\t} 0");
    EXPECT_EQ(Edited('t', "{ \n }"), u"{} 3");
}

TEST_F(Edits, RtfLinesAreJoinedInTheirFormats) {
    // The colour that nobody sees makes the source longer than what is read back.
    EXPECT_EQ(Edited('j', "{\\1\\2a\nb\\3c\n\nd\\0}"), u"{\\2a b\\3c  d} 3");
    EXPECT_EQ(Edited('j', "{\\0no break}"), u"{\\0no break} 0");
    EXPECT_EQ(Edited('j', "{a\nb}"), u"{a\nb} 0");  // read back it is no shorter
}

TEST_F(Edits, RtfIsTurnedWhetherTheEngineTurnsItOrNot) {
    for (const bool byItself : {true, false}) {
        engine_.CanTurnCase = byItself;
        EXPECT_EQ(Edited('u', "{\\1ab\\2\ncd\\7ef\\8g1h}"), u"{\\0AB\nCD\\7EF\\8G1H} 1");
        EXPECT_EQ(Queue.GetItem(0)->Size(), 19U);
        EXPECT_TRUE(Queue.GetItem(0)->alternatives.empty());
    }
    EXPECT_EQ(Edited('l', "{\\7AbC}"), u"{\\7abc} 1");
    engine_.ShowsText = false;
    EXPECT_EQ(Edited('u', "{ab}"), u"{ab} 0");
    engine_.CanTurnCase = true;
    EXPECT_EQ(Edited('u', "{ab}"), u"{\\0AB} 1");
}

TEST_F(Edits, WhatCannotBeEditedStays) {
    for (const char edit : {'u', 'l', 't', 'j'}) {
        EXPECT_EQ(Edit(edit, 99), 0U);
        for (const ItemFormat format : {CHF_HTML, CHF_KELPNOTES}) {
            Add(ByteItem(format, "{ a\r\n}"));
            EXPECT_EQ(Edit(edit), 0U);
        }
        const auto lines = Log.Lines.size();
        EXPECT_EQ(Edited(edit, " no\nsource "), u" no\nsource  0");
        EXPECT_EQ(Log.Lines.size(), lines + 1);
        engine_.CanSave = false;
        EXPECT_EQ(Edited(edit, "{\\0\\0\\0 a\n}"), u"{\\0\\0\\0 a\n} 0");
        engine_.CanSave = true;
        EXPECT_EQ(Queue.GetItem(0)->storeState, StoreState::Saved);
        EXPECT_EQ(Queue.GetItem(0)->sourceUrl, u"http://a/");
    }
    EXPECT_EQ(saves_, 0);
}

}  // namespace
}  // namespace vbr

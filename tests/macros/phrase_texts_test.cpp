// SPDX-License-Identifier: MIT
#include "macros/phrase_texts.h"

#include "fakes/macro_fixture.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

VBRCommand Phrase(std::u16string_view title, std::u16string_view cmd,
                  std::int32_t dataType = kDataTypeText) {
    VBRCommand record;
    record.Text = title;
    record.Cmd = cmd;
    record.DataType = dataType;
    return record;
}

class PhraseTextsTest : public testing::Test, protected MacroFixture {
  protected:
    PhraseTextsTest() { Clock.Local = {2025, 3, 3, 5, 21, 7, 30, 0}; }
};

TEST_F(PhraseTextsTest, TheCaptionPreviewsWhatAPhraseWouldGive) {
    const std::tuple<VBRCommand, std::u16string_view, std::int32_t> cases[] = {
        // Nothing replaced: the title, which may read as the text up to the cursor.
        {Phrase(u"A title", u"text 100%"), u"A title", -1},
        {Phrase(u"A\ttitle", u""), u"A title", -1},
        {Phrase(u"A title", u"in %CURSOR_POS%the middle"), u"A title", -1},
        {Phrase(u" Dear  Sir", u" Dear  %CURSOR_POS%, hello"), u"Dear Sir", 5},
        {Phrase(u"A title", u"%YEAR%"), u"2025", -1},
        {Phrase(u"A title", u"(%SELECTED_TEXT%)"), u"(some words)", -1},
        {Phrase(u"A title", u"%LOWER_SELTEXT%%CURSOR_POS%"), u"some words", 10},
        // The cursor's place, with lines, blanks and ends as the caption shows them.
        {Phrase(u"A title", u"\r\n%YEAR%\r\n\t<%CURSOR_POS%>%CURSOR_POS%"), u"2025¶ < >", 7},
        {Phrase(u"A title", u"%CURSOR_POS%  %YEAR%"), u"2025", 0},
        {Phrase(u"A title", u"%YEAR%:     %CURSOR_POS%\r\nx"), u"2025: ¶x", 6},
        // A cursor mark that a value brought in comes first.
        {Phrase(u"A title", u"%CLIPBOARD_TEXT%<%DAY%%CURSOR_POS%>"), u"cl ip<5>", 2},
        {Phrase(u"A title", u"<%CLIPBOARD_TEXT%>"), u"<clip>", 3},
        {Phrase(u"A title", u"%SELECTED_TEXT%%KEYPRESS_TAB%%PROMPT_TEXT={}%x"), u"some words x",
         -1},
        {Phrase(u"x", u"x%SELECTED_TEXT% %CURSOR_POS%%CLIPBOARD_TEXT%", kDataTypeExec),
         u"x [some words] [cl%CURSOR_POS%ip]", -1},
        // In the start, in the end and in what is cut out of a long text.
        {Phrase(u"A title", u"%YEAR% one %CURSOR_POS%two three four five six seven eight nine"),
         u"2025 one two three…seven eight nine", 9},
        {Phrase(u"A title", u"%YEAR% one two three four five six seven eight%CURSOR_POS% nine"),
         u"2025 one two three…seven eight nine", 30},
        {Phrase(u"A title", u"%YEAR% one two three four %CURSOR_POS% five six seven eight nine"),
         u"2025 one two three…seven eight nine", 18}};
    for (const auto& [record, caption, expected] : cases) {
        std::int32_t cursor = 99;
        EXPECT_EQ(Previews.BuildMenuCaption(record, {u"some words", u"cl%CURSOR_POS%ip", kEnglish},
                                            cursor),
                  caption);
        EXPECT_EQ(cursor, expected) << Utf16ToUtf8(record.Cmd);
    }
    std::int32_t cursor = 99;
    EXPECT_EQ(Previews.BuildMenuCaption(Phrase(u"A title", u"%SELECTED_TEXT%"), {}, cursor),
              u"A title");
}

TEST_F(PhraseTextsTest, ATitleOnlyPhraseShowsNoPreview) {
    VBRCommand record = Phrase(u"A title\r\nof two lines", u"%YEAR%%CURSOR_POS%");
    record.UseTitleOnly = true;
    std::int32_t cursor = 99;
    EXPECT_EQ(Previews.BuildMenuCaption(record, {}, cursor), u"A title");
    EXPECT_EQ(cursor, -1);
}

TEST_F(PhraseTextsTest, TheTipNamesTheKindTheTextAndTheLayout) {
    const std::pair<VBRCommand, std::u16string_view> cases[] = {
        {Phrase(u"", u"год %YEAR%"), u"Insert plain text » Title\nChars: 8\r\n\r\nгод 2025"},
        {Phrase(u"", u""), u"Insert plain text » Title"},
        {Phrase(u"", u"%CURSOR_POS%"), u"Insert plain text » Title\nChars: 0"},
        {Phrase(u"", u"run %SELECTED_TEXT%", kDataTypeExec),
         u"Execute application » Title\r\n\r\nrun sel"},
        {Phrase(u"", u"%ACTIVATE_KL_EN%%ACTIVATE_KL_RU%x"),
         u"Insert plain text » Title\nChars: 1\r\n\r\nx\r\n+ Activate keyboard layout   РУССКИЙ"},
        // A layout macro that a value brings in isn't asked for, nor shown.
        {Phrase(u"", u"a%CLIPBOARD_TEXT%"), u"Insert plain text » Title\nChars: 5\r\n\r\naclip"}};
    for (const auto& [record, tip] : cases) {
        EXPECT_EQ(Previews.BuildMenuTip(record, u"Title",
                                        {u"sel", u"cl%ACTIVATE_KL_EN%ip", kEnglish}, nullptr),
                  tip);
    }
}

TEST_F(PhraseTextsTest, TheTipHandsOutItsPreview) {
    std::u16string preview = u"left over";
    Previews.BuildMenuTip(Phrase(u"", u""), u"Title", {}, &preview);
    EXPECT_EQ(preview, u"");
    // Tokens that a value brings in again stand for the texts once more.
    Previews.BuildMenuTip(Phrase(u"", u"%SELECTED_TEXT%"), u"Title",
                          {u"<%CLIPBOARD_TEXT%>", u"clip", kEnglish}, &preview);
    EXPECT_EQ(preview, u"<clip>");
}

TEST_F(PhraseTextsTest, AllTextsOfAnItemAreTheSameAsOneByOne) {
    const MacroInput input{u"<%CLIPBOARD_TEXT%>", u"cl%CURSOR_POS%ip%ACTIVATE_KL_EN%", kEnglish};
    for (const std::u16string_view cmd :
         {u"", u"text", u"100%", u"%YEAR%", u"{%SELECTED_TEXT%}", u"{%CLIPBOARD_TEXT%\n}",
          u"%YEAR%%CURSOR_POS%x", u"%ACTIVATE_KL_RU%", u"%PROMPT_TEXT={}%"}) {
        for (int kind = 0; kind < 6; ++kind) {
            VBRCommand record = Phrase(u"A title", cmd, kind % 3);
            record.UseTitleOnly = kind >= 3;
            const PhraseMenuTexts texts = Previews.BuildMenuTexts(record, input);
            std::int32_t cursor = 99;
            std::u16string preview;
            EXPECT_EQ(texts.Caption, Previews.BuildMenuCaption(record, input, cursor));
            EXPECT_EQ(texts.CursorIndex, cursor);
            EXPECT_EQ(texts.Tip, Previews.BuildMenuTip(record, texts.Caption, input, &preview));
            EXPECT_EQ(texts.Preview, preview);
        }
    }
}

TEST_F(PhraseTextsTest, FormattedPhrasesShowTheirPlainText) {
    const VBRCommand record =
        Phrase(u"A title", u"{Year  %YEAR%,%CURSOR_POS% %ACTIVATE_KL_RU%\nend}", kDataTypeRtf);
    std::int32_t cursor = 99;
    EXPECT_EQ(Previews.BuildMenuCaption(record, {}, cursor), u"Year 2025, end");
    EXPECT_EQ(cursor, 10);
    std::u16string preview;
    EXPECT_EQ(Previews.BuildMenuTip(record, u"Title", {}, &preview),
              u"Insert formatted text » Title\nChars: 17\r\n\r\nYear  2025, \r\nend"
              u"\r\n+ Activate keyboard layout   РУССКИЙ");
    EXPECT_EQ(preview, u"Year  2025, \r\nend");
    EXPECT_EQ(Previews.ExpandedLength(record), preview.size());
    EXPECT_EQ(Previews.ExpandedLength(Phrase(u"", u"%YEAR%!")), 5U);
    // The selection keeps its protocol, as it does on delivery.
    EXPECT_EQ(Previews.BuildMenuCaption(
                  Phrase(u"", u"{%SELECTED_TEXT%%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%}", kDataTypeRtf),
                  {.SelText = u"http://a"}, cursor),
              u"http://a");
}

TEST_F(PhraseTextsTest, AFormattedPhraseIsLoadedOnceForAllMenus) {
    int loads = 0;
    RichText.OnLoad = [&loads] { ++loads; };
    for (const std::u16string_view source : {u"{%YEAR%%CURSOR_POS%a}", u"{%SELECTED_TEXT%}"}) {
        for (const std::u16string_view selection : {u"a", u"b"}) {
            const VBRCommand record = Phrase(u"A title", source, kDataTypeRtf);
            Items.DescribePhrase(record, {.SelText = selection});
            Previews.ExpandedLength(record);
        }
    }
    EXPECT_EQ(loads, 2);
}

TEST_F(PhraseTextsTest, ABrokenFormattedPhraseIsToldOnceWithItsTitleAndShowsItsText) {
    const VBRCommand record =
        Phrase(u"A title", u"{\\rtf1 a\\par \\'e9 %YEAR%%CURSOR_POS%", kDataTypeRtf);
    for (int menu = 0; menu < 2; ++menu) {
        const PhraseMenuTexts texts = Previews.BuildMenuTexts(record, {});
        EXPECT_EQ(texts.Caption, u"a é 2025");
        EXPECT_EQ(texts.CursorIndex, 8);
        EXPECT_EQ(texts.Preview, u"a\r\né 2025");
    }
    ASSERT_EQ(Log.Lines.size(), 1U);
    EXPECT_TRUE(Log.Tells(u"[A title]"));
}

TEST_F(PhraseTextsTest, TheBadgeNamesAnInstalledLayoutThatThePhraseAsksFor) {
    ExpectTexts(
        {{u"text", u""},
         {u"%ACTIVATE_KL_DE%", u""},  // not installed
         {u"%ACTIVATE_KL_RU% %ACTIVATE_KL_EN%", u"Ru"}},
        [this](std::u16string_view text) {
            return Previews.LayoutBadge(Previews.BuildMenuTexts(Phrase(u"", text), {}).Layout);
        });
    const VBRCommand rich = Phrase(u"", u"{%ACTIV\\1ATE_KL_RU%}", kDataTypeRtf);
    EXPECT_EQ(Previews.BuildMenuTexts(rich, {}).Layout, kRussian);
}

}  // namespace
}  // namespace vbr

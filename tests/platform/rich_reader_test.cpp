// SPDX-License-Identifier: MIT
#include "platform/rich_reader.h"

#include "fakes/fake_rich_text_engine.h"
#include "fakes/text_cases.h"

namespace vbr {
namespace {

std::u16string ReadText(std::u16string_view source) {
    return ReadRichText(source, FakeRichTextEngine());
}

TEST(RichReader, BrokenSourcesGiveTheTextThatTheyHave) {
    ExpectTexts({{u"{\\rtf1 cut \\b off\\b0  here", u"cut off here"},
                 {u"{\\rtf1 a}}b", u"a"},
                 {u"\uFEFF \n{\\RTF1 a{b{c", u"abc"},
                 {u"{\\rtf1 " + std::u16string(10'000, u'{') + u"deep", u"deep"},
                 {u"{\\rtf1 a\\", u"a"},
                 {u"{\\rtf1 a\\'", u"a"},
                 {u"{\\rtf1 a\\'4", u"a4"},
                 {u"{\\rtf1 a\\bin99999999999999999999 ", u"a"},
                 {u"{\\rtf", u""},
                 {u"{text} 100%\r\n", u"{text} 100%\r\n"},
                 {u"", u""}},
                ReadText);
}

TEST(RichReader, LinesEscapesAndSignsBecomeCharacters) {
    ExpectTexts(
        {{u"{\\rtf1 a\r\nb\\par c\\line\r\n d\\tab e\\\nf\\par}", u"ab\r\nc\r\n d\te\r\nf"},
         {u"{\\rtf1 \\{\\}\\\\x\\~y\\_z\\-w\\emdash\\ldblquote q\\rdblquote}",
          u"{}\\x\u00A0y\u2011zw—“q”"},
         {u"{\\rtf1\\u1055?\\u-10179?\\u-8704?a{\\uc2\\u1055??x\\u1055\\'cf\\'cfy}\\u1055?z}",
          u"П😀aПxПyПz"},
         {u"{\\urtf1 \u00CFД}", u"\u00CFД"}},
        ReadText);
}

TEST(RichReader, BytesAreThoseOfTheFontsOrTheDocumentsCodePage) {
    ExpectTexts({{u"{\\rtf1\\ansi \\'cf\u00CF}", u"\u00CF\u00CF"},
                 {u"{\\rtf1\\ansicpg1251 \\'cf\u00CFД}", u"ППД"},
                 {u"{\\rtf1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}"
                  u"\\f1\\'cf{\\f0\\'cf}\\'cf\\plain\\'cf}",
                  u"П\u00CFП\u00CF"}},
                ReadText);
}

TEST(RichReader, WhatShowsNoTextIsLeftOut) {
    ExpectTexts(
        {{u"{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\*\\generator Some;}"
          u"{\\info{\\title t}}{\\pict\\bin3 }}}ff}a{\\field{\\*\\fldinst LINK}{\\fldrslt b}}"
          u"{\\header h\\par}\\trowd c\\cell\\row}",
          u"abc\t"}},
        ReadText);
}

}  // namespace
}  // namespace vbr

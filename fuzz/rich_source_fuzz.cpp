// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fakes/fake_rich_text_engine.h"
#include "fuzzing.h"
#include "platform/rich_reader.h"
#include "platform/rich_source.h"

namespace {

// Other programs get ASCII, unless bytes of the source may be more than characters.
void CheckBytes(const std::u16string& source) {
    const std::string bytes = vbr::ToRichBytes(source);
    const std::string ascii = vbr::ToAsciiRich(source);
    vbr::Require(vbr::RichTextSize(bytes) <= bytes.size());
    vbr::Require(vbr::RichGroupDepth(bytes) <=
                 static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '{')));
    const bool isAscii = std::all_of(ascii.begin(), ascii.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    vbr::Require(isAscii || ascii == bytes);
    // What was made ASCII stays as it is.
    vbr::Require(!isAscii || vbr::ToAsciiRich(vbr::Utf8ToUtf16(ascii)) == ascii);
}

void CheckLastParagraph(const std::u16string& source) {
    const std::u16string without = vbr::WithoutLastParagraph(source);
    vbr::Require(vbr::EndsInParagraph(source) == (without.size() < source.size()));
}

// Nothing of a source is read twice.
void CheckReading(const std::u16string& source) {
    const std::u16string whole = u"{\\rtf1" + source;
    vbr::Require(vbr::ReadRichText(whole, vbr::FakeRichTextEngine()).size() <= source.size());
    // Text by itself, whose line ends may become two units.
    vbr::Require(vbr::ReadRichText(source, vbr::FakeRichTextEngine()).size() <= 2 * source.size());
}

}  // namespace

// A source as it lies in a phrase file: UTF-8 text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string source = vbr::Utf8ToUtf16(vbr::InputText(data, size));
    CheckBytes(source);
    CheckBytes(u"{\\urtf1" + source);
    CheckLastParagraph(source);
    CheckReading(source);
    return 0;
}

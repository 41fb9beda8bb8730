// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzzing.h"
#include "history/source_url.h"

// A block of the clipboard's HTML format, and the same as plain text: an address is one line of the
// input and no longer than it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view block = vbr::InputText(data, size);
    const std::u16string ofHtml = vbr::SourceUrlOfHtml(block);
    vbr::Require(ofHtml.size() <= size && ofHtml.find_first_of(u"\r\n") == ofHtml.npos);
    vbr::Require(ofHtml.empty() || block.find("SourceURL:") != block.npos);

    const std::u16string text = vbr::Utf8ToUtf16(block);
    const std::u16string ofText = vbr::TextAsUrl(text);
    vbr::Require(ofText.empty() || text.find(ofText) != text.npos);
    vbr::Require(ofText.find_first_of(u"\r\n") == ofText.npos);
    // An address is its own address, unless it is too short for a text.
    vbr::Require(ofText.size() <= 8 || vbr::TextAsUrl(ofText) == ofText);
    return 0;
}

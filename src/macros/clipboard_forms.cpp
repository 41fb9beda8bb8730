// SPDX-License-Identifier: MIT
#include "macros/clipboard_forms.h"

#include <algorithm>
#include <cstring>

#include "platform/rich_source.h"

namespace vbr {
namespace {

constexpr std::uint32_t kClipLocale = 16;

ClipboardBlock BlockOf(std::uint32_t format, const void* data, std::size_t size) {
    ClipboardBlock block;
    block.Format = format;
    block.Bytes.resize(size);
    std::memcpy(block.Bytes.data(), data, size);
    return block;
}

ClipboardBlock TextBlock(std::u16string_view text) {
    ClipboardBlock block;
    block.Format = kClipUnicodeText;
    block.Bytes.resize((text.size() + 1) * sizeof(char16_t));  // with the terminator
    if (!text.empty()) {
        std::memcpy(block.Bytes.data(), text.data(), text.size() * sizeof(char16_t));
    }
    return block;
}

ClipboardBlock LocaleBlock(Lcid locale) {
    return BlockOf(kClipLocale, &locale, sizeof locale);
}

}  // namespace

std::vector<ClipboardBlock> PlainClipboardForm(std::u16string_view text, Lcid locale) {
    return {TextBlock(text), LocaleBlock(locale)};
}

std::vector<ClipboardBlock> RichClipboardForm(std::u16string_view source,
                                              std::u16string_view plainText, Lcid language) {
    const std::string bytes = ToAsciiRich(source);
    std::vector<ClipboardBlock> blocks = {BlockOf(0, bytes.c_str(), bytes.size() + 1)};
    blocks.front().Name = kRichTextFormat;
    if (!plainText.empty()) {
        blocks.push_back(TextBlock(plainText));
    }
    if (language != 0) {
        blocks.push_back(LocaleBlock(language));
    }
    return blocks;
}

bool PutOnClipboard(const std::vector<ClipboardBlock>& blocks, ClipboardAccess& clipboard) {
    const std::unique_ptr<ClipboardSession> session = clipboard.Open(0);
    return session && session->Empty() &&
           std::all_of(blocks.begin(), blocks.end(),
                       [&session](const ClipboardBlock& block) { return session->Write(block); });
}

}  // namespace vbr

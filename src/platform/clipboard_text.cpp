// SPDX-License-Identifier: MIT
#include "platform/clipboard_text.h"

#include <algorithm>

namespace vbr {
namespace {

// The characters of a text format up to their terminator; some programs leave that out.
template <typename Char>
std::basic_string<Char> ReadText(ClipboardAccess& clipboard, std::uint32_t format) {
    if (!clipboard.IsFormatAvailable(format)) {
        return {};
    }
    const auto session = clipboard.Open(0);
    if (!session || !session->DoesOwnerAnswer(kOwnerAnswerMs)) {
        return {};
    }
    const auto block = session->Read(format);
    if (!block) {
        return {};
    }
    const auto* text = reinterpret_cast<const Char*>(block->Bytes.data());
    const Char* limit = text + block->Bytes.size() / sizeof(Char);
    return {text, std::find(text, limit, Char{})};
}

}  // namespace

std::u16string ReadUnicodeText(ClipboardAccess& clipboard) {
    return ReadText<char16_t>(clipboard, kClipUnicodeText);
}

std::u16string ReadAnyText(ClipboardAccess& clipboard, const AnsiText& ansi) {
    std::u16string text = ReadUnicodeText(clipboard);
    return text.empty() ? ansi.FromAnsi(ReadText<char>(clipboard, kClipText)) : text;
}

}  // namespace vbr

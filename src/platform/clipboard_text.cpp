// SPDX-License-Identifier: MIT
#include "platform/clipboard_text.h"

#include <algorithm>

namespace vbr {
namespace {

// The characters of a text block up to their terminator; some programs leave that out.
template <typename Char>
std::basic_string<Char> TextOf(const ClipboardBlock& block) {
    const auto* text = reinterpret_cast<const Char*>(block.Bytes.data());
    const Char* limit = text + block.Bytes.size() / sizeof(Char);
    return {text, std::find(text, limit, Char{})};
}

template <typename Char>
std::basic_string<Char> ReadText(const ClipboardSession& session, std::uint32_t format) {
    if (!session.DoesOwnerAnswer(kOwnerAnswerMs)) {
        return {};
    }
    const auto block = session.Read(format);
    return block ? TextOf<Char>(*block) : std::basic_string<Char>();
}

}  // namespace

std::u16string UnicodeTextOf(const ClipboardBlock& block) {
    return TextOf<char16_t>(block);
}

std::u16string ReadAnyText(const ClipboardSession& session, const AnsiText& ansi) {
    std::u16string text = ReadText<char16_t>(session, kClipUnicodeText);
    return text.empty() ? ansi.FromAnsi(ReadText<char>(session, kClipText)) : text;
}

std::u16string ReadUnicodeText(ClipboardAccess& clipboard) {
    if (!clipboard.IsFormatAvailable(kClipUnicodeText)) {
        return {};
    }
    const auto session = clipboard.Open(kClipboardPatienceMs);
    return session ? ReadText<char16_t>(*session, kClipUnicodeText) : std::u16string();
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard.h"

#include "platform/win32/windows.h"

#include <algorithm>

#include "platform/win32/wide.h"

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

std::u16string FromAnsi(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    std::u16string out(static_cast<std::size_t>(std::max(units, 0)), u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, Wide(out.data()), units);
    return out;
}

}  // namespace

bool WinClipboard::Empty() {
    const auto session = access_.Open(0);
    return session && session->Empty();
}

std::u16string WinClipboard::Text() const {
    std::u16string text = UnicodeText();
    return text.empty() ? FromAnsi(ReadText<char>(access_, kClipText)) : text;
}

std::u16string WinClipboard::UnicodeText() const {
    return ReadText<char16_t>(access_, kClipUnicodeText);
}

}  // namespace vbr

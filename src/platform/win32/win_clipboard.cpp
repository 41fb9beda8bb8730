// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard.h"

#include "platform/win32/windows.h"

#include <algorithm>

#include "platform/win32/wide.h"

namespace vbr {
namespace {

// Holds the clipboard open as long as it lives.
class OpenClipboardCall {
  public:
    OpenClipboardCall() : open_(OpenClipboard(nullptr) != 0) {}
    ~OpenClipboardCall() {
        if (open_) {
            CloseClipboard();
        }
    }
    OpenClipboardCall(const OpenClipboardCall&) = delete;
    OpenClipboardCall& operator=(const OpenClipboardCall&) = delete;

    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

// The characters of a text block up to its terminator; some programs leave that out.
template <typename Char>
std::basic_string<Char> ReadTextBlock(UINT format) {
    const HGLOBAL block = GetClipboardData(format);
    const auto* text = block ? static_cast<const Char*>(GlobalLock(block)) : nullptr;
    if (!text) {
        return {};
    }
    const Char* limit = text + GlobalSize(block) / sizeof(Char);
    std::basic_string<Char> out(text, std::find(text, limit, Char{}));
    GlobalUnlock(block);
    return out;
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
    const OpenClipboardCall clipboard;
    return clipboard && EmptyClipboard();
}

std::u16string WinClipboard::Text() const {
    std::u16string text = UnicodeText();
    if (!text.empty() || !IsClipboardFormatAvailable(CF_TEXT)) {
        return text;
    }
    const OpenClipboardCall clipboard;
    return clipboard ? FromAnsi(ReadTextBlock<char>(CF_TEXT)) : std::u16string();
}

std::u16string WinClipboard::UnicodeText() const {
    if (!IsClipboardFormatAvailable(CF_UNICODETEXT)) {
        return {};
    }
    const OpenClipboardCall clipboard;
    if (!clipboard) {
        return {};
    }
    const std::wstring text = ReadTextBlock<wchar_t>(CF_UNICODETEXT);
    return FromWide(text.data(), text.size());
}

}  // namespace vbr

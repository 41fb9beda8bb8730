// SPDX-License-Identifier: MIT
#include "exchange/query_writer.h"

namespace vbr {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool IsWhite(char32_t c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsAllWhite(std::u16string_view text) {
    for (const char16_t c : text) {
        if (!IsWhite(c)) {
            return false;
        }
    }
    return true;
}

// The character that starts at `at`, which then stands behind it.
char32_t TakeCharacter(std::u16string_view text, std::size_t& at) {
    const char32_t unit = text[at++];
    if (IsHighSurrogate(unit) && at < text.size() && IsLowSurrogate(text[at])) {
        return 0x10000 + ((unit - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
    }
    const bool none =
        IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit == 0xFFFE || unit == 0xFFFF;
    return none ? kReplacement : unit;
}

// Fills the buffer from its start, one byte of it kept for the zero.
class Page {
  public:
    Page(char* buffer, std::size_t size) : buffer_(buffer), size_(size) {}

    std::size_t Length() const { return length_; }
    bool IsWhole() const { return whole_; }

    void CutTo(std::size_t length) {
        length_ = length;
        whole_ = true;
    }

    void End() { buffer_[length_] = '\0'; }

    void Put(char byte) {
        whole_ = whole_ && length_ + 1 < size_;
        if (whole_) {
            buffer_[length_++] = byte;
        }
    }

    void Put(std::string_view bytes) {
        for (const char byte : bytes) {
            Put(byte);
        }
    }

    void PutNumber(std::int64_t number) {
        char digits[20];
        std::size_t count = 0;
        auto rest = static_cast<std::uint64_t>(number < 0 ? -number : number);
        do {
            digits[count++] = static_cast<char>('0' + rest % 10);
            rest /= 10;
        } while (rest);
        if (number < 0) {
            Put('-');
        }
        while (count) {
            Put(digits[--count]);
        }
    }

    void PutUtf8(char32_t c) {
        if (c < 0x80) {
            Put(static_cast<char>(c));
        } else if (c < 0x800) {
            Put(static_cast<char>(0xC0 | c >> 6));
            PutTail(c);
        } else if (c < 0x10000) {
            Put(static_cast<char>(0xE0 | c >> 12));
            PutTail(c >> 6);
            PutTail(c);
        } else {
            Put(static_cast<char>(0xF0 | c >> 18));
            PutTail(c >> 12);
            PutTail(c >> 6);
            PutTail(c);
        }
    }

    // Text of an element. White space that a parser would normalise or drop becomes references;
    // what XML has no characters for is left out.
    void PutText(std::u16string_view text) {
        if (IsAllWhite(text)) {
            PutBlankText(text);
            return;
        }
        bool afterBlank = true;
        for (std::size_t at = 0; at < text.size() && whole_;) {
            const char32_t c = TakeCharacter(text, at);
            const bool plainBlank = c == ' ' && !afterBlank && at < text.size();
            afterBlank = plainBlank;
            if (c == '&') {
                Put("&amp;");
            } else if (c == '<') {
                Put("&lt;");
            } else if (c == '>') {
                Put("&gt;");
            } else if (c == '"') {
                Put("&quot;");
            } else if (IsWhite(c) && !plainBlank) {
                Put("&#");
                PutNumber(c);
                Put(';');
            } else if (c >= ' ') {
                PutUtf8(c);
            }
        }
    }

    void PutAttribute(std::string_view name, std::int64_t number) {
        Put(' ');
        Put(name);
        Put("=\"");
        PutNumber(number);
        Put('"');
    }

    void PutElement(std::string_view name, std::u16string_view text) {
        Open(name);
        PutText(text);
        Close(name);
    }

    void PutElement(std::string_view name, std::int64_t number) {
        Open(name);
        PutNumber(number);
        Close(name);
    }

    void Close(std::string_view name) {
        Put("</");
        Put(name);
        Put(">\r\n");
    }

  private:
    // The reader's parser drops a text of nothing but white space, but no such section.
    void PutBlankText(std::u16string_view text) {
        if (!text.empty()) {
            Put("<![CDATA[");
            for (const char16_t c : text) {
                Put(static_cast<char>(c));
            }
            Put("]]>");
        }
    }

    void Open(std::string_view name) {
        Put('<');
        Put(name);
        Put('>');
    }

    void PutTail(char32_t bits) { Put(static_cast<char>(0x80 | (bits & 0x3F))); }

    char* buffer_;
    std::size_t size_;
    std::size_t length_ = 0;
    bool whole_ = true;
};

// Handles have 32 bits that count; the reader's numbers are signed.
std::int32_t Number(WindowHandle window) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(window));
}

void PutSelection(Page& page, std::int32_t state, std::u16string_view text) {
    page.Put("<SelText");
    page.PutAttribute("StateSelText", state);
    page.Put('>');
    page.PutText(text);
    page.Close("SelText");
    page.Close("WPQuery");
}

}  // namespace

bool WriteQueryDocument(const QueryFacts& facts, char* buffer, std::size_t size) {
    const GuiThreadWindows& thread = facts.GuiThreadInfo;
    Page page(buffer, size);
    page.Put("<WPQuery");
    page.PutAttribute("HWND_Active", Number(thread.Active));
    page.PutAttribute("HWND_Capture", Number(thread.Capture));
    page.PutAttribute("HWND_Caret", Number(thread.Caret));
    page.PutAttribute("HWND_Focus", Number(thread.Focus));
    page.PutAttribute("HWND_MenuOwner", Number(thread.MenuOwner));
    page.PutAttribute("POINT_X", facts.PointX);
    page.PutAttribute("POINT_Y", facts.PointY);
    page.Put(">\r\n");
    page.PutElement("AppPath", facts.AppPath);
    page.PutElement("WindowClassName", facts.WindowClassName);
    page.PutElement("HWND", Number(facts.Target));
    // The names stand the other way round.
    page.PutElement("HKLLoword", facts.Hkl >> 16);
    page.PutElement("HKLHoword", facts.Hkl & 0xFFFF);
    if (!page.IsWhole()) {
        return false;
    }
    const std::size_t selection = page.Length();
    PutSelection(page, facts.StateSelText, facts.SelText);
    if (!page.IsWhole()) {
        page.CutTo(selection);
        PutSelection(page, kSelTextFailed, {});
    }
    if (page.IsWhole()) {
        page.End();
    }
    return page.IsWhole();
}

}  // namespace vbr

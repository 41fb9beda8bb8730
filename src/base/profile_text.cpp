// SPDX-License-Identifier: MIT
#include "base/profile_text.h"

#include <algorithm>
#include <vector>

#include "base/text.h"

namespace vbr {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::u16string_view kBlanks = u" \t\v\f\x1A\xFEFF";
constexpr std::u16string_view kBreaks = u"\r\n";

std::u16string FromUtf16Bytes(std::string_view bytes) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

std::u16string FromLatin1(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
    return text;
}

void AppendUtf16Bytes(std::string& out, std::u16string_view text) {
    for (const char16_t c : text) {
        out += static_cast<char>(c & 0xFF);
        out += static_cast<char>(c >> 8);
    }
}

void AppendLatin1(std::string& out, std::u16string_view text) {
    for (const char16_t c : text) {
        out += c <= 0xFF ? static_cast<char>(c) : '?';
    }
}

std::u16string_view TrimBlanks(std::u16string_view text) {
    return Trim(text, kBlanks);
}

// The name in "[name]"; nothing for any other line.
std::optional<std::u16string_view> SectionName(std::u16string_view line) {
    const std::size_t close = line.rfind(u']');
    if (line.empty() || line.front() != u'[' || close == line.npos) {
        return std::nullopt;
    }
    return TrimBlanks(line.substr(1, close - 1));
}

std::u16string_view WithoutQuotes(std::u16string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

struct Line {
    std::size_t Start;
    std::size_t End;   // without the line break
    std::size_t Next;  // behind the line break
};

Line LineAt(std::u16string_view text, std::size_t start) {
    const std::size_t end = std::min(text.find_first_of(kBreaks, start), text.size());
    const std::size_t width = text.substr(end, 2) == kBreaks ? 2 : end < text.size() ? 1 : 0;
    return {start, end, end + width};
}

int HexDigit(char16_t c) {
    if (c >= u'0' && c <= u'9') {
        return c - u'0';
    }
    const char16_t upper = UpperChar(c);
    return upper >= u'A' && upper <= u'F' ? upper - u'A' + 10 : -1;
}

std::uint8_t SumOf(std::span<const std::uint8_t> bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
    }
    return static_cast<std::uint8_t>(sum);
}

}  // namespace

// Where a key's line is, or where it would be added.
struct ProfileText::Place {
    bool SectionFound = false;
    bool KeyFound = false;
    Line KeyLine{};
    std::size_t Equals = std::u16string_view::npos;  // position of '=' in the key's line
    std::size_t SectionEnd = 0;                      // behind the section's last line with text
};

ProfileText::ProfileText(std::string_view bytes) {
    if (bytes.starts_with(kUtf16Mark) || bytes.empty()) {
        mark_ = kUtf16Mark;
        encoding_ = Encoding::Utf16;
        bytes.remove_prefix(std::min(mark_.size(), bytes.size()));
        text_ = FromUtf16Bytes(bytes);
        halfUnit_ = bytes.substr(text_.size() * 2);
        return;
    }
    if (bytes.starts_with(kUtf8Mark)) {
        mark_ = kUtf8Mark;
        bytes.remove_prefix(mark_.size());
    }
    encoding_ = IsValidUtf8(bytes) ? Encoding::Utf8 : Encoding::Latin1;
    text_ = encoding_ == Encoding::Utf8 ? Utf8ToUtf16(bytes) : FromLatin1(bytes);
}

ProfileText::Place ProfileText::Find(std::u16string_view section, std::u16string_view key) const {
    const std::u16string_view text = text_;
    Place place;
    for (Line line{}; line.Next < text.size();) {
        line = LineAt(text, line.Next);
        const std::u16string_view all = text.substr(line.Start, line.End - line.Start);
        const std::u16string_view trimmed = TrimBlanks(all);
        if (const auto name = SectionName(trimmed)) {
            if (place.SectionFound) {
                return place;
            }
            place.SectionFound = EqualsNoCase(*name, section);
        } else if (place.SectionFound && !trimmed.starts_with(u';')) {
            const std::size_t equals = all.find(u'=');
            if (EqualsNoCase(TrimBlanks(all.substr(0, equals)), key)) {
                place.KeyFound = true;
                place.KeyLine = line;
                place.Equals = equals == all.npos ? all.npos : line.Start + equals;
                return place;
            }
        }
        if (place.SectionFound && !trimmed.empty()) {
            place.SectionEnd = line.Next;
        }
    }
    return place;
}

std::optional<std::u16string> ProfileText::Get(std::u16string_view section,
                                               std::u16string_view key) const {
    const Place place = Find(section, key);
    if (!place.KeyFound || place.Equals == std::u16string_view::npos) {
        return std::nullopt;
    }
    const std::size_t start = place.Equals + 1;
    const std::u16string_view value =
        std::u16string_view(text_).substr(start, place.KeyLine.End - start);
    return std::u16string(WithoutQuotes(TrimBlanks(value)));
}

bool ProfileText::Set(std::u16string_view section, std::u16string_view key,
                      std::u16string_view value) {
    if (!IsProfileValue(value)) {
        return false;
    }
    const Place place = Find(section, key);
    if (place.KeyFound) {
        const bool hasValue = place.Equals != std::u16string_view::npos;
        const std::size_t from = hasValue ? place.Equals : place.KeyLine.End;
        text_.replace(from, place.KeyLine.End - from, Concat(u"=", value));
        return true;
    }
    const std::u16string lineBreak(LineBreak());
    std::size_t at = place.SectionFound ? place.SectionEnd : text_.size();
    if (at > 0 && kBreaks.find(text_[at - 1]) == kBreaks.npos) {
        text_.insert(at, lineBreak);
        at += lineBreak.size();
    }
    const std::u16string header =
        place.SectionFound ? std::u16string() : Concat(u"[", section, u"]", lineBreak);
    text_.insert(at, Concat(header, key, u"=", value, lineBreak));
    return true;
}

bool ProfileText::Delete(std::u16string_view section, std::u16string_view key) {
    const Place place = Find(section, key);
    if (place.KeyFound) {
        text_.erase(place.KeyLine.Start, place.KeyLine.Next - place.KeyLine.Start);
    }
    return place.KeyFound;
}

std::string ProfileText::Bytes() const {
    std::string bytes = mark_;
    switch (encoding_) {
        case Encoding::Utf8:
            bytes += Utf16ToUtf8(text_);
            break;
        case Encoding::Latin1:
            AppendLatin1(bytes, text_);
            break;
        case Encoding::Utf16:
            AppendUtf16Bytes(bytes, text_);
            break;
    }
    return bytes + halfUnit_;
}

// As the file's first line ends.
std::u16string_view ProfileText::LineBreak() const {
    const Line first = LineAt(text_, 0);
    return first.Next > first.End
               ? std::u16string_view(text_).substr(first.End, first.Next - first.End)
               : kBreaks;
}

bool IsProfileValue(std::u16string_view value) {
    return value.find_first_of(u"\r\n\0"sv) == value.npos;
}

std::u16string QuotedProfileValue(std::u16string_view value) {
    const bool isKept = WithoutQuotes(TrimBlanks(value)).size() == value.size();
    return isKept ? std::u16string(value) : Concat(u"\"", value, u"\"");
}

std::u16string EncodeProfileStruct(std::span<const std::uint8_t> bytes) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string text;
    text.reserve(2 * bytes.size() + 2);
    const auto append = [&](std::uint8_t byte) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    };
    std::for_each(bytes.begin(), bytes.end(), append);
    append(SumOf(bytes));
    return text;
}

bool DecodeProfileStruct(std::u16string_view text, std::span<std::uint8_t> bytes) {
    if (text.size() != 2 * bytes.size() + 2) {
        return false;
    }
    std::vector<std::uint8_t> read(bytes.size() + 1);
    for (std::size_t i = 0; i < read.size(); ++i) {
        const int high = HexDigit(text[2 * i]);
        const int low = HexDigit(text[2 * i + 1]);
        if (high < 0 || low < 0) {
            return false;
        }
        read[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    const auto content = std::span(read).first(bytes.size());
    if (SumOf(content) != read.back()) {
        return false;
    }
    std::copy(content.begin(), content.end(), bytes.begin());
    return true;
}

}  // namespace vbr

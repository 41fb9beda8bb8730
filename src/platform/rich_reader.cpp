// SPDX-License-Identifier: MIT
#include "platform/rich_reader.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <vector>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kPrefix = u"{\\rtf";
constexpr std::u16string_view kUnicodePrefix = u"{\\urtf";
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::uint32_t kLatin = 1252;
constexpr int kMaxFallback = 16;  // characters that stand for a \uN where it isn't known

struct WordText {
    std::u16string_view Word;
    std::u16string_view Text;
};

constexpr WordText kTextWords[] = {
    {u"par", kLineEnd},   {u"line", kLineEnd}, {u"sect", kLineEnd},     {u"page", kLineEnd},
    {u"row", kLineEnd},   {u"tab", u"\t"},     {u"cell", u"\t"},        {u"emdash", u"—"},
    {u"endash", u"–"},    {u"lquote", u"‘"},   {u"rquote", u"’"},       {u"ldblquote", u"“"},
    {u"rdblquote", u"”"}, {u"bullet", u"•"},   {u"emspace", u"\u2003"}, {u"enspace", u"\u2002"},
};

// Groups whose text isn't the document's; those marked \* are left out anyway.
constexpr std::u16string_view kSilentGroups[] = {
    u"colortbl", u"fldinst",  u"fonttbl", u"footer",     u"footerf", u"footerl",
    u"footerr",  u"footnote", u"header",  u"headerf",    u"headerl", u"headerr",
    u"info",     u"object",   u"pict",    u"stylesheet",
};

// Code pages by the character sets of fonts.
constexpr std::pair<int, std::uint32_t> kCharsets[] = {
    {0, 1252},   {128, 932},  {129, 949},  {130, 1361}, {134, 936},
    {136, 950},  {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255},
    {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250},
};

int HexDigit(char16_t c) {
    const char16_t upper = UpperChar(c);
    if (upper >= u'A' && upper <= u'F') {
        return upper - u'A' + 10;
    }
    return c >= u'0' && c <= u'9' ? c - u'0' : -1;
}

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

class Reader {
  public:
    Reader(std::u16string_view source, const RichTextEngine& engine)
        : rest_(source), engine_(engine), isUnicode_(StartsWithNoCase(source, kUnicodePrefix)) {}

    std::u16string Read() {
        while (!rest_.empty() && !(groups_.empty() && hasBegun_)) {
            ReadOne();
        }
        FlushBytes();
        if (text_.ends_with(kLineEnd)) {
            // The mark of the last paragraph.
            text_.resize(text_.size() - kLineEnd.size());
        }
        return std::move(text_);
    }

  private:
    struct Group {
        bool IsSilent = false;
        bool IsFontTable = false;
        int FallbackLength = 1;
        std::uint32_t CodePage = 0;  // 0 for the document's
    };

    char16_t Take() {
        const char16_t unit = rest_.front();
        rest_.remove_prefix(1);
        return unit;
    }

    void ReadOne() {
        const char16_t unit = Take();
        if (unit == u'{') {
            groups_.push_back(groups_.empty() ? Group() : groups_.back());
            hasBegun_ = true;
            toSkip_ = 0;
        } else if (unit == u'}') {
            FlushBytes();
            groups_.pop_back();
            toSkip_ = 0;
        } else if (unit == u'\\') {
            ReadControl();
        } else if (unit != u'\r' && unit != u'\n' && unit != 0) {
            AddUnit(unit);
        }
    }

    // A unit up to 255 is a byte, which may be one of several that make a character.
    void AddUnit(char16_t unit) {
        if (toSkip_ > 0) {
            --toSkip_;
        } else if (unit > 0xFF || (isUnicode_ && unit > 0x7F)) {
            AddText(std::u16string_view(&unit, 1));
        } else if (!groups_.back().IsSilent) {
            bytes_ += static_cast<char>(unit);
        }
    }

    void AddText(std::u16string_view text) {
        FlushBytes();
        if (!groups_.back().IsSilent) {
            text_ += text;
        }
    }

    void FlushBytes() {
        if (!bytes_.empty()) {
            const std::uint32_t page = groups_.back().CodePage;
            text_ += engine_.FromCodePage(bytes_, page == 0 ? codePage_ : page);
            bytes_.clear();
        }
    }

    void ReadControl() {
        if (rest_.empty()) {
            return;
        }
        if (IsLetter(rest_.front())) {
            ReadWord();
            return;
        }
        const char16_t symbol = Take();
        if (symbol == u'\'') {
            ReadHexByte();
        } else if (symbol == u'*') {
            groups_.back().IsSilent = true;
        } else if (symbol == u'\r' || symbol == u'\n') {
            AddText(kLineEnd);
        } else if (symbol == u'~' || symbol == u'_') {
            const char16_t unbroken = symbol == u'~' ? u'\u00A0' : u'\u2011';
            AddText(std::u16string_view(&unbroken, 1));
        } else if (symbol == u'\\' || symbol == u'{' || symbol == u'}') {
            AddUnit(symbol);
        }
    }

    void ReadHexByte() {
        const int high = rest_.empty() ? -1 : HexDigit(rest_[0]);
        const int low = rest_.size() < 2 ? -1 : HexDigit(rest_[1]);
        if (high < 0 || low < 0) {
            return;
        }
        rest_.remove_prefix(2);
        if (toSkip_ > 0) {
            --toSkip_;
        } else if (!groups_.back().IsSilent) {
            bytes_ += static_cast<char>(high * 16 + low);
        }
    }

    void ReadWord() {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
        const std::u16string_view word =
            rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(word.size());
        std::size_t digits = rest_.starts_with(u'-') ? 1 : 0;
        while (digits < rest_.size() && rest_[digits] >= u'0' && rest_[digits] <= u'9') {
            ++digits;
        }
        const std::u16string_view parameter = rest_.substr(0, digits);
        rest_.remove_prefix(digits + (rest_.substr(digits).starts_with(u' ') ? 1 : 0));
        if (word == u"bin") {
            const std::int64_t size = ParseDecimal(parameter);
            rest_.remove_prefix(
                std::min(rest_.size(), static_cast<std::size_t>(std::max<std::int64_t>(size, 0))));
        } else if (toSkip_ > 0) {
            --toSkip_;
        } else {
            Obey(word, ParseDecimal(parameter), !parameter.empty());
        }
    }

    void Obey(std::u16string_view word, std::int64_t number, bool hasNumber) {
        if (word == u"u" && hasNumber) {
            const auto unit = static_cast<char16_t>(number);
            AddText(std::u16string_view(&unit, 1));
            toSkip_ = groups_.back().FallbackLength;
        } else if (word == u"uc" && hasNumber) {
            groups_.back().FallbackLength =
                static_cast<int>(std::clamp<std::int64_t>(number, 0, kMaxFallback));
        } else if (word == u"ansicpg" && hasNumber) {
            codePage_ = static_cast<std::uint32_t>(number);
        } else if (std::find(std::begin(kSilentGroups), std::end(kSilentGroups), word) !=
                   std::end(kSilentGroups)) {
            groups_.back().IsSilent = true;
            groups_.back().IsFontTable = word == u"fonttbl";
        } else if (word == u"f" || word == u"fcharset" || word == u"plain" || word == u"deff") {
            ObeyFont(word, number);
        } else if (const auto* const found =
                       std::find_if(std::begin(kTextWords), std::end(kTextWords),
                                    [word](const WordText& w) { return w.Word == word; });
                   found != std::end(kTextWords)) {
            AddText(found->Text);
        }
    }

    void ObeyFont(std::u16string_view word, std::int64_t number) {
        if (word == u"deff") {
            defaultFont_ = number;
        } else if (word == u"fcharset") {
            const auto* const page =
                std::find_if(std::begin(kCharsets), std::end(kCharsets),
                             [number](const auto& c) { return c.first == number; });
            fontPages_[namedFont_] = page == std::end(kCharsets) ? 0 : page->second;
        } else if (groups_.back().IsFontTable) {
            namedFont_ = number;
        } else {
            FlushBytes();
            const auto page = fontPages_.find(word == u"plain" ? defaultFont_ : number);
            groups_.back().CodePage = page == fontPages_.end() ? 0 : page->second;
        }
    }

    std::u16string_view rest_;
    const RichTextEngine& engine_;
    bool isUnicode_;
    bool hasBegun_ = false;
    std::vector<Group> groups_;
    std::uint32_t codePage_ = kLatin;
    std::map<std::int64_t, std::uint32_t> fontPages_;  // 0 for a font of no code page
    std::int64_t namedFont_ = 0;
    std::int64_t defaultFont_ = 0;
    int toSkip_ = 0;  // characters that stand for a \uN
    std::string bytes_;
    std::u16string text_;
};

}  // namespace

std::u16string ReadRichText(std::u16string_view source, const RichTextEngine& engine) {
    const std::u16string_view begun = TrimLeft(source, u" \t\r\n\uFEFF");
    if (!StartsWithNoCase(begun, kPrefix) && !StartsWithNoCase(begun, kUnicodePrefix)) {
        return std::u16string(source);
    }
    return Reader(begun, engine).Read();
}

}  // namespace vbr

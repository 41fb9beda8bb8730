// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "base/text.h"
#include "platform/rich_source.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// Text with colours. Its sources are a text in braces, where \1 to \9 begin a colour, \0 the
// automatic one, \{ and \} are braces, a line feed ends a paragraph and \par the last one; anything
// without the braces fails to load.
// Colours from 5 stand for fonts, which ClearEffects leaves.
class FakeRichTextEngine : public RichTextEngine {
  public:
    bool CanSave = true;
    bool CanTurnCase = false;  // while it loads
    bool ShowsText = true;     // unit by unit
    std::function<void()> OnLoad = [] {};

    bool LoadSource(std::u16string_view marked) override {
        OnLoad();
        const std::u16string source = WithoutLastParagraph(marked);
        text_.clear();
        colors_.clear();
        if (!source.starts_with(u'{') || !source.ends_with(u'}')) {
            return false;
        }
        TextColor color;
        for (std::size_t i = 1; i + 1 < source.size(); ++i) {
            if (source[i] == u'\\' && source[++i] < u'{') {
                const std::uint32_t number = source[i] - u'0';
                color = {number == 0, number};
                continue;
            }
            text_ += source[i] == u'\n' ? u'\r' : source[i];
            colors_.push_back(color);
        }
        return true;
    }
    bool LoadSourceInCase(std::u16string_view source, LetterCase letterCase) override {
        const bool loaded = LoadSource(source);
        if (CanTurnCase && letterCase == LetterCase::Upper) {
            text_ = ToUpper(text_);
        }
        return loaded;
    }
    std::optional<std::u16string> SaveSource() const override {
        return SaveRange({0, text_.size()});
    }
    std::optional<std::u16string> SaveRange(RichRange range) const override {
        if (!CanSave) {
            return std::nullopt;
        }
        std::u16string source = u"{";
        TextColor color;
        for (std::size_t i = range.Start; i < std::min(range.End, text_.size()); ++i) {
            if (colors_[i] != color) {
                color = colors_[i];
                source += Concat(u"\\", color.Rgb);
            }
            source += text_[i] == u'{' || text_[i] == u'}' ? u"\\" : u"";
            source += text_[i] == u'\r' ? u'\n' : text_[i];
        }
        return source + (range.End > text_.size() ? u"\\par}" : u"}");
    }
    std::u16string PlainText() const override {
        std::u16string text = text_;
        ReplaceAll(text, u"\r", u"\r\n");
        return text;
    }
    std::optional<std::u16string> Text() const override {
        return ShowsText ? std::optional(text_) : std::nullopt;
    }
    std::size_t Length() const override { return text_.size(); }
    std::optional<std::size_t> Find(std::u16string_view what, std::size_t from,
                                    std::size_t to) const override {
        const std::size_t position = std::u16string_view(text_).substr(0, to).find(what, from);
        return position == text_.npos ? std::nullopt : std::optional(position);
    }
    void ReplaceRange(RichRange range, std::u16string_view with) override {
        std::u16string text(with);
        ReplaceAll(text, u"\r\n", u"\r");
        const TextColor color = colors_[range.Start];
        const auto at = [&](std::size_t i) {
            return colors_.begin() + static_cast<std::ptrdiff_t>(i);
        };
        colors_.insert(colors_.erase(at(range.Start), at(range.End)), text.size(), color);
        text_.replace(range.Start, range.End - range.Start, text);
    }
    std::optional<TextColor> ColorOf(RichRange range) const override {
        for (std::size_t i = range.Start + 1; i < range.End; ++i) {
            if (colors_[i] != colors_[range.Start]) {
                return std::nullopt;
            }
        }
        return colors_[range.Start];
    }
    void SetColor(RichRange range, TextColor color) override {
        std::fill_n(colors_.begin() + static_cast<std::ptrdiff_t>(range.Start),
                    range.End - range.Start, color);
    }
    void ClearEffects() override {
        for (TextColor& color : colors_) {
            color = color.Rgb < 5 ? TextColor{false, 0} : color;
        }
    }
    std::size_t SameFormatEnd(RichRange range) const override {
        std::size_t end = range.Start;
        while (end < range.End && colors_[end] == colors_[range.Start]) {
            ++end;
        }
        return end;
    }

    // Latin 1, and the letters of Windows' Cyrillic.
    std::u16string FromCodePage(std::string_view bytes, std::uint32_t codePage) const override {
        std::u16string text;
        for (const char byte : bytes) {
            const auto unit = static_cast<unsigned char>(byte);
            text += static_cast<char16_t>(codePage == 1251 && unit >= 0xC0 ? unit + 0x350 : unit);
        }
        return text;
    }

  private:
    std::u16string text_;
    std::vector<TextColor> colors_;
};

}  // namespace vbr

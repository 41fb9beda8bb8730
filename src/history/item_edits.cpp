// SPDX-License-Identifier: MIT
#include "history/item_edits.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "base/text.h"
#include "history/item_text.h"
#include "history/rich_edits.h"

namespace vbr {
namespace {

constexpr std::u16string_view kTrimmed = u" \t\n";

bool IsText(const CCHItem& item) {
    return item.format == CHF_ANSI_TEXT || item.format == CHF_UNICODE_TEXT;
}

// ANSI text goes by the rules of the C library, in the locale of the process.
std::string TurnBytes(std::string_view text, LetterCase letterCase) {
    std::string turned(text);
    for (char& c : turned) {
        const auto byte = static_cast<unsigned char>(c);
        c = static_cast<char>(letterCase == LetterCase::Upper ? std::toupper(byte)
                                                              : std::tolower(byte));
    }
    return turned;
}

std::size_t TrimText(std::u16string& text) {
    const std::size_t before = text.size();
    text = std::u16string(Trim(text, kTrimmed));
    return before - text.size();
}

std::size_t JoinText(std::u16string& text) {
    const std::size_t count = ReplaceAll(text, u"\r\n", u" ") + ReplaceAll(text, u"\n\r", u" ");
    TrimText(text);
    return count;
}

void Rewrite(CCHItem& item, ItemBytes data) {
    item.FreeData();
    item.SetData(std::move(data));
}

// What was read back of a document, as bytes.
std::string BytesOf(std::u16string_view source) {
    source = source.substr(0, source.find(u'\0'));
    std::string bytes(source.size(), '\0');
    std::transform(source.begin(), source.end(), bytes.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return bytes;
}

}  // namespace

bool ItemEdits::ChangeItemCase(LetterCase letterCase, std::size_t index) {
    return Edit(index, [&](CCHItem& item) { return TurnCase(item, letterCase) ? 1U : 0U; }) != 0;
}

std::size_t ItemEdits::TrimItem(std::size_t index) {
    return Edit(index, [this](CCHItem& item) {
        return IsText(item) ? EditText(item, TrimText) : EditRich(item, TrimRich);
    });
}

std::size_t ItemEdits::JoinItem(std::size_t index) {
    return Edit(index, [this](CCHItem& item) {
        return IsText(item) ? EditText(item, JoinText) : EditRich(item, JoinRich);
    });
}

std::size_t ItemEdits::Edit(std::size_t index, const std::function<std::size_t(CCHItem&)>& edit) {
    std::size_t count = 0;
    const bool changed = with_.Queue.ChangeItem(index, [&](CCHItem& item) {
        count = edit(item);
        return count != 0;
    });
    if (changed) {
        with_.RequestSave();
    }
    return count;
}

bool ItemEdits::TurnCase(CCHItem& item, LetterCase letterCase) {
    switch (item.format) {
        case CHF_UNICODE_TEXT: {
            const auto text = item.WideText();
            Rewrite(item, TextBytes(letterCase == LetterCase::Upper ? with_.Locale.Upper(text)
                                                                    : with_.Locale.Lower(text)));
            return true;
        }
        case CHF_ANSI_TEXT:
            Rewrite(item, TextBytes(TurnBytes(item.ByteText(), letterCase)));
            return true;
        case CHF_RTF:
            return TurnRichCase(item, letterCase);
        default:
            return false;
    }
}

bool ItemEdits::TurnRichCase(CCHItem& item, LetterCase letterCase) {
    if (!LoadRichInCase(with_.Engine, RichSourceOf(item), letterCase, with_.Locale)) {
        LogUnreadable(item);
        return false;
    }
    const std::string turned = BytesOf(with_.Engine.SaveSource().value_or(std::u16string()));
    if (turned.empty()) {
        LogUnreadable(item);
        return false;
    }
    Rewrite(item, TextBytes(turned));
    return true;
}

std::size_t ItemEdits::EditText(CCHItem& item, std::size_t (*edit)(std::u16string&)) {
    const bool isAnsi = item.format == CHF_ANSI_TEXT;
    std::u16string text =
        isAnsi ? with_.Ansi.FromAnsi(item.ByteText()) : std::u16string(item.WideText());
    const std::size_t count = edit(text);
    if (count != 0) {
        Rewrite(item, isAnsi ? TextBytes(with_.Ansi.ToAnsi(text)) : TextBytes(text));
    }
    return count;
}

std::size_t ItemEdits::EditRich(CCHItem& item, std::size_t (*edit)(RichTextEngine&)) {
    if (item.format != CHF_RTF) {
        return 0;
    }
    if (!with_.Engine.LoadSource(RichSourceOf(item))) {
        LogUnreadable(item);
        return 0;
    }
    const std::size_t count = edit(with_.Engine);
    return count != 0 && WriteBackRich(item) ? count : 0;
}

// The buffer keeps its size, so only a source that has become shorter fits; the rest of the buffer
// is zero.
bool ItemEdits::WriteBackRich(CCHItem& item) {
    const std::string edited = BytesOf(with_.Engine.SaveSource().value_or(std::u16string()));
    if (edited.empty() || edited.size() >= item.ByteText().size()) {
        return false;
    }
    ItemBytes data(item.Data().size());
    std::transform(edited.begin(), edited.end(), data.begin(),
                   [](char byte) { return static_cast<std::byte>(byte); });
    item.SetData(std::move(data));
    return true;
}

void ItemEdits::LogUnreadable(const CCHItem& item) {
    with_.Log.LogError(
        Concat(u"Cannot edit formatted text of ", item.Size(), u" bytes in the clipboard history"));
}

}  // namespace vbr

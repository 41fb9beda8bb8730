// SPDX-License-Identifier: MIT
#include "macros/phrase_texts.h"

#include "base/text.h"
#include "macros/layout_macros.h"
#include "macros/macro_tokens.h"
#include "macros/text_shortening.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr int kTitleLimit = 40;
constexpr std::size_t kCaptionLimit = 40;
constexpr std::size_t kTipFrame = 80;  // room for what a tip adds to title and preview

// Stands for the cursor mark while a text is expanded; no phrase holds it by chance.
constexpr std::u16string_view kCursorMarker = u"{B43C2CC5-77A0-44dd-8DAA-8EAD133B41A3}";

bool Holds(std::u16string_view text, std::u16string_view what) {
    return FindText(text, what) != text.npos;
}

int KindString(std::int32_t dataType) {
    switch (dataType) {
        case kDataTypeRtf:
            return kStrInsertFormattedText;
        case kDataTypeExec:
            return kStrExecuteApplication;
        default:
            return kStrInsertPlainText;
    }
}

// The title, and in brackets what of the query the phrase asks for.
std::u16string TitleWithInput(const VBRCommand& record, const MacroInput& input) {
    std::u16string caption = record.Text;
    if (Holds(record.Cmd, kMacroSelectedText)) {
        caption += Concat(u" [", ShortenMiddle(input.SelText, kCaptionLimit), u"]");
    }
    if (Holds(record.Cmd, kMacroClipboardText)) {
        caption += Concat(u" [", ShortenMiddle(input.ClipboardText, kCaptionLimit), u"]");
    }
    return caption;
}

// A caption as the menu can show it, on one line and never empty for want of a text.
std::u16string OnMenuLine(const VBRCommand& record, std::u16string_view caption) {
    if (caption.empty()) {
        return ShortenMiddle(PhraseTitle(record), kCaptionLimit);
    }
    return ShortenMiddle(caption, kCaptionLimit, LineEnds::Shown);
}

}  // namespace

std::u16string PhraseTitle(const VBRCommand& record) {
    return ShortenTitle(record.Text, kTitleLimit);
}

PhraseMenuTexts PhraseTexts::BuildMenuTexts(const VBRCommand& record,
                                            const MacroInput& input) const {
    PhraseMenuTexts texts;
    // Caption and tip differ in what they expand only where the cursor mark stands.
    if (record.UseTitleOnly || record.DataType == kDataTypeRtf || !Holds(record.Cmd, u"%") ||
        Holds(record.Cmd, kMacroCursorPos)) {
        texts.Caption = BuildMenuCaption(record, input, texts.CursorIndex);
        texts.Tip = BuildMenuTip(record, texts.Caption, input, &texts.Preview);
        return texts;
    }
    Expansion expansion = Expand(record.Cmd, input);
    texts.Caption = OnMenuLine(record, PlainCaption(record, input, expansion, texts.CursorIndex));
    texts.Preview = std::move(expansion.Text);
    FinishPreview(texts.Preview, input);
    texts.Tip = TipAround(record, texts.Caption, true, texts.Preview);
    return texts;
}

std::u16string PhraseTexts::BuildMenuCaption(const VBRCommand& record, const MacroInput& input,
                                             std::int32_t& outCursorIndex) const {
    outCursorIndex = -1;
    if (record.UseTitleOnly) {
        return PhraseTitle(record);
    }
    if (record.DataType == kDataTypeRtf) {
        return OnMenuLine(record, RichCaption(record, input));
    }
    if (!Holds(record.Cmd, u"%")) {
        return OnMenuLine(record, record.Text);
    }
    std::u16string text = record.Cmd;
    ReplaceAll(text, kMacroCursorPos, kCursorMarker);
    return OnMenuLine(record,
                      PlainCaption(record, input, Expand(std::move(text), input), outCursorIndex));
}

PhraseTexts::Expansion PhraseTexts::Expand(std::u16string text, const MacroInput& input) const {
    const MacroOutcome outcome = with_.Macros.ExpandMacros(text, input);
    return {std::move(text), outcome};
}

std::u16string PhraseTexts::PlainCaption(const VBRCommand& record, const MacroInput& input,
                                         const Expansion& expansion,
                                         std::int32_t& outCursorIndex) const {
    const std::size_t marker = FindText(expansion.Text, kCursorMarker);
    if (marker != expansion.Text.npos) {
        outCursorIndex = static_cast<std::int32_t>(marker);
    } else if (expansion.Outcome.CursorBack > 0) {
        outCursorIndex =
            static_cast<std::int32_t>(expansion.Text.size() - expansion.Outcome.CursorBack);
    }
    if (expansion.Outcome.Replaced == 0 || record.DataType != kDataTypeText) {
        return TitleWithInput(record, input);
    }
    std::u16string text = expansion.Text;
    if (marker != text.npos) {
        ReplaceAll(text, kCursorMarker, u" ");
    }
    return text;
}

std::u16string PhraseTexts::RichCaption(const VBRCommand& record, const MacroInput& input) const {
    std::u16string source = record.Cmd;
    // Formatted text shows no cursor mark. A marker's braces would open a group here.
    ReplaceAll(source, kMacroCursorPos, u" ");
    with_.Rich.ExpandMacrosRich(source, input);
    return ShortenMiddle(RichToPlainText(source, with_.Engine), kCaptionLimit);
}

std::u16string PhraseTexts::BuildMenuTip(const VBRCommand& record, std::u16string_view title,
                                         const MacroInput& input,
                                         std::u16string* outPreview) const {
    std::u16string preview = PlainTextOf(record);
    const bool hasText = !preview.empty();
    if (Holds(preview, u"%")) {
        preview = Expand(std::move(preview), input).Text;
        FinishPreview(preview, input);
    }
    const std::u16string tip = TipAround(record, title, hasText, preview);
    if (outPreview) {
        *outPreview = std::move(preview);
    }
    return tip;
}

// What an expansion leaves of texts that values brought in.
void PhraseTexts::FinishPreview(std::u16string& text, const MacroInput& input) const {
    if (Holds(text, u"%")) {
        ReplaceAll(text, kMacroSelectedText, input.SelText);
        ReplaceAll(text, kMacroClipboardText, input.ClipboardText);
        with_.Macros.StripLayoutMacros(text);
    }
}

std::u16string PhraseTexts::TipAround(const VBRCommand& record, std::u16string_view title,
                                      bool hasText, std::u16string_view preview) const {
    std::u16string tip;
    tip.reserve(title.size() + preview.size() + kTipFrame);
    tip.append(with_.Texts.LoadString(KindString(record.DataType))).append(u" » ").append(title);
    if (hasText && record.DataType != kDataTypeExec) {
        const auto length = static_cast<std::int64_t>(preview.size());
        tip.append(u"\n").append(with_.Texts.LoadString(kStrChars)).append(u": ");
        tip.append(ToDecimal(length));
    }
    if (!preview.empty()) {
        tip.append(u"\r\n\r\n").append(preview);
    }
    if (const Lcid layout = LayoutOf(record); layout != 0) {
        tip += Concat(u"\r\n+ ", with_.Texts.LoadString(kStrActivateLayout), u"   ",
                      with_.Locale.Upper(with_.Locale.LanguageName(layout)));
    }
    return tip;
}

std::u16string PhraseTexts::LayoutBadge(std::u16string_view text) const {
    return vbr::LayoutBadge(text, with_.Layouts, with_.Locale);
}

std::size_t PhraseTexts::ExpandedLength(const VBRCommand& record) const {
    std::u16string text = PlainTextOf(record);
    with_.Macros.ExpandMacrosPlain(text);
    return text.size();
}

std::u16string PhraseTexts::PlainTextOf(const VBRCommand& record) const {
    return record.DataType == kDataTypeRtf ? RichToPlainText(record.Cmd, with_.Engine) : record.Cmd;
}

Lcid PhraseTexts::LayoutOf(const VBRCommand& record) const {
    if (record.DataType == kDataTypeRtf) {
        return with_.Rich.StripLayoutMacrosRich(record.Cmd);
    }
    if (!Holds(record.Cmd, kMacroLayoutPrefix)) {
        return 0;
    }
    std::u16string text = record.Cmd;
    return with_.Macros.StripLayoutMacros(text);
}

}  // namespace vbr

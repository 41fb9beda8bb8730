// SPDX-License-Identifier: MIT
#include "macros/phrase_texts.h"

#include <optional>

#include "base/text.h"
#include "macros/macro_tokens.h"
#include "macros/text_shortening.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr int kTitleLimit = 40;
constexpr std::size_t kCaptionLimit = 40;
constexpr std::size_t kBadgeLength = 2;
constexpr std::size_t kTipFrame = 80;  // room for what a tip adds to title and preview

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

// A text as the menu shows it, on one line.
std::u16string OnMenuLine(std::u16string_view text, LineEnds lineEnds,
                          std::optional<std::size_t>& place) {
    return ShortenMiddle(text, kCaptionLimit, lineEnds, place ? &*place : nullptr);
}

}  // namespace

std::u16string PhraseTitle(const VBRCommand& record) {
    return ShortenTitle(record.Text, kTitleLimit);
}

PhraseMenuTexts PhraseTexts::BuildMenuTexts(const VBRCommand& record,
                                            const MacroInput& input) const {
    PhraseMenuTexts texts;
    Expansion expansion = Expand(record, input);
    texts.Caption = CaptionOf(record, input, expansion, texts.CursorIndex);
    texts.Tip = TipOf(record, texts.Caption, input, expansion);
    texts.Preview = std::move(expansion.Text);
    texts.Layout = expansion.Outcome.Layout;
    return texts;
}

std::u16string PhraseTexts::BuildMenuCaption(const VBRCommand& record, const MacroInput& input,
                                             std::int32_t& outCursorIndex) const {
    return CaptionOf(record, input, Expand(record, input), outCursorIndex);
}

PhraseTexts::Expansion PhraseTexts::Expand(const VBRCommand& record,
                                           const MacroInput& input) const {
    Expansion expansion{.Text = ShownText(record), .Outcome = {}};
    expansion.HadText = !expansion.Text.empty();
    if (!Holds(expansion.Text, u"%")) {
        return expansion;
    }
    expansion.NamesCursor = Holds(expansion.Text, kMacroCursorPos);
    if (record.DataType == kDataTypeRtf) {
        // Formatted text gets the selection with its protocols.
        ReplaceAll(expansion.Text, kMacroTrimProtocols, u"");
    }
    expansion.Outcome = with_.Macros.ExpandMacros(expansion.Text, input);
    return expansion;
}

std::u16string PhraseTexts::CaptionOf(const VBRCommand& record, const MacroInput& input,
                                      const Expansion& expansion,
                                      std::int32_t& outCursorIndex) const {
    outCursorIndex = -1;
    if (record.UseTitleOnly) {
        return PhraseTitle(record);
    }
    const bool showsText = record.DataType == kDataTypeRtf ||
                           (record.DataType == kDataTypeText && expansion.Outcome.Replaced > 0);
    std::optional<std::size_t> place = expansion.Outcome.CursorAt;
    std::u16string line = showsText
                              ? TextLine(record, expansion, place)
                              : TitleLine(record, TitleWithInput(record, input), expansion, place);
    if (line.empty()) {
        line = TitleLine(record, PhraseTitle(record), expansion, place);
    }
    outCursorIndex = place ? static_cast<std::int32_t>(*place) : -1;
    return line;
}

// The text that the phrase gives, with a blank where its own cursor mark stood.
std::u16string PhraseTexts::TextLine(const VBRCommand& record, const Expansion& expansion,
                                     std::optional<std::size_t>& place) {
    std::u16string text;
    std::u16string_view shown = expansion.Text;
    if (place && expansion.NamesCursor) {
        text = Concat(shown.substr(0, *place), u" ", shown.substr(*place));
        shown = text;
    }
    if (record.DataType == kDataTypeRtf) {
        text = OnMenuLine(shown, LineEnds::Hidden, place);
        shown = text;
    }
    return OnMenuLine(shown, LineEnds::Shown, place);
}

// A title tells nothing of the cursor's place, unless it reads as the text does up to there. A
// command puts no cursor anywhere.
std::u16string PhraseTexts::TitleLine(const VBRCommand& record, std::u16string_view title,
                                      const Expansion& expansion,
                                      std::optional<std::size_t>& place) {
    place = expansion.Outcome.CursorAt;
    const std::u16string_view before =
        std::u16string_view(expansion.Text).substr(0, place.value_or(0));
    if (record.DataType == kDataTypeExec || !title.starts_with(before)) {
        place.reset();
    }
    return OnMenuLine(title, LineEnds::Shown, place);
}

std::u16string PhraseTexts::BuildMenuTip(const VBRCommand& record, std::u16string_view title,
                                         const MacroInput& input,
                                         std::u16string* outPreview) const {
    Expansion expansion = Expand(record, input);
    std::u16string tip = TipOf(record, title, input, expansion);
    if (outPreview) {
        *outPreview = std::move(expansion.Text);
    }
    return tip;
}

// Makes the expansion the preview that the tip shows.
std::u16string PhraseTexts::TipOf(const VBRCommand& record, std::u16string_view title,
                                  const MacroInput& input, Expansion& expansion) const {
    std::u16string& preview = expansion.Text;
    FinishPreview(preview, input);
    std::u16string tip;
    tip.reserve(title.size() + preview.size() + kTipFrame);
    tip.append(with_.Texts.LoadString(KindString(record.DataType))).append(u" » ").append(title);
    if (expansion.HadText && record.DataType != kDataTypeExec) {
        const auto length = static_cast<std::int64_t>(preview.size());
        tip.append(u"\n").append(with_.Texts.LoadString(kStrChars)).append(u": ");
        tip.append(ToDecimal(length));
    }
    if (!preview.empty()) {
        tip.append(u"\r\n\r\n").append(preview);
    }
    if (const Lcid layout = expansion.Outcome.Layout; layout != 0) {
        tip += Concat(u"\r\n+ ", with_.Texts.LoadString(kStrActivateLayout), u"   ",
                      with_.Locale.Upper(with_.Locale.LanguageName(layout)));
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

std::u16string PhraseTexts::LayoutBadge(Lcid layout) const {
    return layout == 0 ? std::u16string()
                       : with_.Locale.LanguageAbbreviation(layout).substr(0, kBadgeLength);
}

std::size_t PhraseTexts::ExpandedLength(const VBRCommand& record) const {
    std::u16string text = ShownText(record);
    with_.Macros.ExpandMacrosPlain(text);
    return text.size();
}

const std::u16string& PhraseTexts::ShownText(const VBRCommand& record) const {
    return record.DataType == kDataTypeRtf ? rich_.PlainTextOf(record.Cmd, record.Text)
                                           : record.Cmd;
}

}  // namespace vbr

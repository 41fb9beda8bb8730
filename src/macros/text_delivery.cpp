// SPDX-License-Identifier: MIT
#include "macros/text_delivery.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <thread>

#include "base/text.h"
#include "macros/clipboard_forms.h"
#include "macros/key_events.h"
#include "macros/rich_macros.h"

namespace vbr {
namespace {

constexpr std::int32_t kMethodPaste = 1;
constexpr std::int32_t kMethodByLength = 2;

constexpr std::uint32_t kBeforePasteMs = 400;
constexpr std::uint32_t kAfterPasteMs = 100;
constexpr std::uint32_t kBetweenStepsMs = 1;

}  // namespace

bool IsTyped(const PasteSettings& settings, std::size_t units) {
    return settings.Method != kMethodPaste &&
           (settings.Method != kMethodByLength || units < settings.PrintLTChars);
}

bool TextDelivery::DeliverText(std::u16string_view text, std::size_t cursorBack) {
    if (!IsTyped(with_.Settings(), text.size())) {
        return PasteText(text, cursorBack);
    }
    with_.Log.Write(Concat(u"DoPrint: ", text));
    return PrintText(text, cursorBack);
}

bool TextDelivery::PrintText(std::u16string_view text, std::size_t cursorBack) {
    if (text.empty()) {
        return false;
    }
    WaitForRelease(with_.Input, with_.Clock, with_.Log);
    const std::array<KeyEvent, 1> controlUp = {{{.Vk = kVkControl, .Flags = kKeyUp}}};
    return SendAll(controlUp, with_.Input, with_.Log) &&
           SendAll(PrintEvents(text, cursorBack, with_.Input), with_.Input, with_.Log);
}

bool TextDelivery::PasteText(std::u16string_view text, std::size_t cursorBack) {
    with_.Log.Write(Concat(u"DoPaste: ", text));
    if (!CopyToClipboard(true, text, 0)) {
        with_.Log.LogError(u"CVBRAction_TextCommon::MutiCopy_Impl::Cannot set to clipboard");
        return false;
    }
    return Paste(cursorBack);
}

bool TextDelivery::PasteRich(std::u16string_view source, std::size_t cursorBack, Lcid language) {
    with_.Log.Write(Concat(u"DoPaste: ", source));
    if (!CopyToClipboard(false, source, language)) {
        with_.Log.LogError(u"Cannot set data to clipboard as MULTI formats");
        return false;
    }
    return Paste(cursorBack);
}

bool TextDelivery::CopyToClipboard(bool plain, std::u16string_view text, Lcid language) {
    const bool done = PutOnClipboard(
        plain ? PlainClipboardForm(text, with_.Locale.ThreadLocale())
              : RichClipboardForm(text, RichToPlainText(text, with_.RichText), language),
        with_.Clipboard);
    if (done) {
        with_.OnCopied();
    }
    return done;
}

bool TextDelivery::Paste(std::size_t cursorBack) {
    bool sent = false;
    try {
        // A new thread sees the keys as they are now; this one as of the input that it has read.
        std::thread([&] {
            with_.Clock.Sleep(kBeforePasteMs);
            sent = SendPasteKeys(cursorBack);
        }).join();
    } catch (const std::system_error&) {
        with_.Log.LogError(u"Cannot start the thread that presses the keys of a paste");
    }
    return sent;
}

bool TextDelivery::SendPasteKeys(std::size_t cursorBack) {
    WaitForRelease(with_.Input, with_.Clock, with_.Log);
    if (!SendAll(PasteEvents(with_.Input), with_.Input, with_.Log)) {
        return false;
    }
    with_.Clock.Sleep(kAfterPasteMs);
    const std::size_t portion = CursorStepsAtOnce(cursorBack);
    const std::vector<KeyEvent> events = CursorEvents(std::min(portion, cursorBack));
    for (std::size_t left = cursorBack; left > 0;) {
        const std::size_t steps = std::min(portion, left);
        if (!SendAll(std::span(events).first(2 * steps), with_.Input, with_.Log)) {
            return false;
        }
        left -= steps;
        if (steps == portion) {
            with_.Clock.Sleep(kBetweenStepsMs);
        }
    }
    return true;
}

}  // namespace vbr

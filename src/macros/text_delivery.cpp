// SPDX-License-Identifier: MIT
#include "macros/text_delivery.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "base/text.h"
#include "macros/clipboard_forms.h"
#include "macros/key_events.h"
#include "macros/rich_macros.h"
#include "platform/key_sending.h"

namespace vbr {
namespace {

constexpr std::int32_t kMethodPaste = 1;
constexpr std::int32_t kMethodByLength = 2;

// A target that is busy for longer counts as hung.
constexpr std::uint32_t kHungMs = 3000;
constexpr std::uint32_t kReleaseMs = 300;
// A slow target gets the time that it needs for a piece.
constexpr std::uint32_t kPieceMs = 10'000;
constexpr std::uint32_t kUnjoinedPieceMs = 20;
// Between the keys of a paste that were read and the text that is fetched; what comes next would
// overtake it, and another content of the clipboard would be fetched in its place.
constexpr std::uint32_t kAfterPasteMs = 100;
constexpr std::uint32_t kBeforeRestoreMs = 500;

}  // namespace

bool IsTyped(const PasteSettings& settings, std::size_t units) {
    return settings.Method != kMethodPaste &&
           (settings.Method != kMethodByLength || units < settings.PrintLTChars);
}

TextDelivery::Result TextDelivery::DeliverText(WindowHandle window, std::u16string_view text) {
    if (!IsTyped(with_.Settings(), text.size())) {
        return PasteText(window, text);
    }
    with_.Log.Write(Concat(u"DoPrint: ", text));
    return PrintText(window, text);
}

TextDelivery::Result TextDelivery::PrintText(WindowHandle window, std::u16string_view text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const InputState state = SendPieces(window, [&] {
        const std::u16string_view piece = NextPiece(text);
        text.remove_prefix(piece.size());
        return PrintEvents(piece, with_.Input);
    });
    return ResultOf(state, window);
}

TextDelivery::Result TextDelivery::PasteText(WindowHandle window, std::u16string_view text) {
    return Paste(window, true, text, 0);
}

TextDelivery::Result TextDelivery::PasteRich(WindowHandle window, std::u16string_view source,
                                             Lcid language) {
    return Paste(window, false, source, language);
}

TextDelivery::Result TextDelivery::Paste(WindowHandle window, bool plain, std::u16string_view text,
                                         Lcid language) {
    with_.Log.Write(Concat(u"DoPaste: ", text));
    // Else the clipboard would lose its content for nothing.
    if (const Result failure =
            ResultOf(SendPieces(window, [] { return std::vector<KeyEvent>(); }), window)) {
        return failure;
    }
    Borrow();
    const bool copied = PutForm(plain, text, language, borrows_ == true);
    if (borrows_ == true) {
        with_.Snapshot.NoteOwnContent();
    }
    if (!copied) {
        with_.Log.LogError(plain ? u"CVBRAction_TextCommon::MutiCopy_Impl::Cannot set to clipboard"
                                 : u"Cannot set data to clipboard as MULTI formats");
        return DeliveryFailure::ClipboardInUse;
    }
    std::vector<KeyEvent> keys = CtrlWith(kVkV, with_.Input);
    const InputState state = SendPieces(window, [&] { return std::exchange(keys, {}); });
    if (state == InputState::Sent && borrows_ == true) {
        // It may fetch the text at any time: what is there stays.
        with_.Snapshot.ClearRestore();
    }
    with_.Clock.Sleep(kAfterPasteMs);
    return ResultOf(state, window);
}

void TextDelivery::Borrow() {
    if (!borrows_ && with_.Settings().RestoresClipboard) {
        borrows_ = with_.Snapshot.Take();
    }
}

TextDelivery::Result TextDelivery::MoveCursorBack(WindowHandle window, std::size_t steps) {
    const InputState state = SendPieces(window, [&] {
        const std::size_t portion = std::min(steps, kPieceLength);
        steps -= portion;
        return CursorEvents(portion, with_.Input);
    });
    return ResultOf(state, window);
}

void TextDelivery::EndPastes() {
    if (std::exchange(borrows_, std::nullopt) == true) {
        with_.Clock.Sleep(kBeforeRestoreMs);
        const MyCopyScope ownCopy(with_.OwnCopy, with_.Clipboard);
        if (!with_.Snapshot.RestoreClipboardSnapshot()) {
            with_.Snapshot.RestoreClipboardSnapshot();
        }
    }
}

std::u16string TextDelivery::PlainTextOf(std::u16string_view source) const {
    return RichToPlainText(source, with_.RichText);
}

bool TextDelivery::CopyToClipboard(bool plain, std::u16string_view text, Lcid language) {
    return PutForm(plain, text, language, false);
}

bool TextDelivery::PutForm(bool plain, std::u16string_view text, Lcid language, bool isPassing) {
    std::vector<ClipboardBlock> form = plain ? PlainClipboardForm(text, with_.Locale.ThreadLocale())
                                             : RichClipboardForm(text, PlainTextOf(text), language);
    if (isPassing) {
        std::ranges::move(PassingMarks(), std::back_inserter(form));
    }
    const MyCopyScope ownCopy(with_.OwnCopy, with_.Clipboard);
    return PutOnClipboard(form, with_.Clipboard);
}

InputState TextDelivery::SendPieces(WindowHandle window,
                                    const std::function<std::vector<KeyEvent>()>& nextPiece) {
    return with_.Keys.Use(window, kHungMs, [&](TargetKeys& keys) {
        InputState reached = keys.AwaitReady();
        if (reached == InputState::Read || reached == InputState::Sent) {
            AwaitRelease(kReleaseMs, 0, with_.Input, with_.Clock, with_.Log);
        }
        while (reached == InputState::Read || reached == InputState::Sent) {
            const std::vector<KeyEvent> piece = nextPiece();
            if (piece.empty()) {
                break;
            }
            reached = keys.Send(piece, kPieceMs, kUnjoinedPieceMs);
        }
        return reached;
    });
}

TextDelivery::Result TextDelivery::ResultOf(InputState state, WindowHandle window) const {
    switch (state) {
        case InputState::Read:
        case InputState::Sent:
            return std::nullopt;
        case InputState::NotRead:
            return DeliveryFailure::NotRead;
        case InputState::NotInFront:
            return with_.Targets.IsWindow(window) ? DeliveryFailure::NotInFront
                                                  : DeliveryFailure::TargetGone;
        default:
            return DeliveryFailure::NotTaken;
    }
}

}  // namespace vbr

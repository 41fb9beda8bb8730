// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "macros/delivery_failure.h"
#include "platform/clipboard_access.h"
#include "platform/clipboard_snapshot.h"
#include "platform/clock.h"
#include "platform/input_injector.h"
#include "platform/locale.h"
#include "platform/log.h"
#include "platform/my_copy.h"
#include "platform/rich_text_engine.h"
#include "platform/target_input.h"
#include "platform/target_windows.h"
#include "platform/window_handle.h"

namespace vbr {

// How the user wants plain text to go out: the values of the settings.
struct PasteSettings {
    std::int32_t Method = 0;         // 0 typed, 1 over the clipboard, 2 by the length
    std::uint32_t PrintLTChars = 0;  // method 2 types shorter texts only
    bool RestoresClipboard = false;  // after a paste
};

// Whether a plain text of that many UTF-16 units is typed; else it goes over the clipboard.
bool IsTyped(const PasteSettings& settings, std::size_t units);

// Gets text into the window of another program that has the keyboard focus, and into no other.
// Returns when the target has read it, or why it has not. Belongs to the main thread.
class TextDelivery {
  public:
    using Result = std::optional<DeliveryFailure>;  // nothing on success

    struct Collaborators {
        InputInjector& Input;
        TargetInput& Keys;
        const TargetWindows& Targets;
        ClipboardAccess& Clipboard;
        MyCopyGuard& OwnCopy;
        CClipboardSnapshot& Snapshot;
        RichTextEngine& RichText;
        const vbr::Locale& Locale;
        vbr::Clock& Clock;
        vbr::Log& Log;
        std::function<PasteSettings()> Settings;  // asked at each text
    };

    explicit TextDelivery(Collaborators with) : with_(std::move(with)) {}

    // Delivers plain text the way that the settings choose.
    Result DeliverText(WindowHandle window, std::u16string_view text);

    // Types the text, in pieces that the target reads one by one.
    Result PrintText(WindowHandle window, std::u16string_view text);

    // Put the text on the clipboard and press Ctrl+V.
    Result PasteText(WindowHandle window, std::u16string_view text);
    Result PasteRich(WindowHandle window, std::u16string_view source, Lcid language);

    // Presses the left cursor key that often.
    Result MoveCursorBack(WindowHandle window, std::size_t steps);

    // What pastes had put aside goes back to the clipboard, when the settings ask for that.
    void EndPastes();

    // The plain text of Rich Text Format source.
    std::u16string PlainTextOf(std::u16string_view source) const;

    // Puts plain text or Rich Text Format source on the clipboard alone. The language counts for
    // the latter.
    bool CopyToClipboard(bool plain, std::u16string_view text, Lcid language);

  private:
    Result Paste(WindowHandle window, bool plain, std::u16string_view text, Lcid language);
    // What is passing carries the marks of that.
    bool PutForm(bool plain, std::u16string_view text, Lcid language, bool isPassing);
    // Sends what the function gives, piece by piece until it gives nothing, when the target reads.
    InputState SendPieces(WindowHandle window,
                          const std::function<std::vector<KeyEvent>()>& nextPiece);
    void Borrow();
    Result ResultOf(InputState state, WindowHandle window) const;

    Collaborators with_;
    // Whether the snapshot holds what was there before the first paste; nothing before that.
    std::optional<bool> borrows_;
};

}  // namespace vbr

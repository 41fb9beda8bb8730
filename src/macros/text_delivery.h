// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/clipboard_access.h"
#include "platform/clock.h"
#include "platform/input_injector.h"
#include "platform/locale.h"
#include "platform/log.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// How the user wants plain text to go out: the values of the settings.
struct PasteSettings {
    std::int32_t Method = 0;         // 0 typed, 1 over the clipboard, 2 by the length
    std::uint32_t PrintLTChars = 0;  // method 2 types shorter texts only
};

// Whether a plain text of that many UTF-16 units is typed; else it goes over the clipboard.
bool IsTyped(const PasteSettings& settings, std::size_t units);

// Gets text into the window that has the keyboard focus. Belongs to the main thread.
class TextDelivery {
  public:
    struct Collaborators {
        InputInjector& Input;
        ClipboardAccess& Clipboard;
        RichTextEngine& RichText;
        const vbr::Locale& Locale;
        vbr::Clock& Clock;
        vbr::Log& Log;
        std::function<PasteSettings()> Settings;  // asked at each text
        std::function<void()> OnCopied;           // what was just put on the clipboard stays there
    };

    explicit TextDelivery(Collaborators with) : with_(std::move(with)) {}

    // Delivers plain text the way that the settings choose.
    bool DeliverText(std::u16string_view text, std::size_t cursorBack);

    // Types the text; false when it is empty or the system takes no input.
    bool PrintText(std::u16string_view text, std::size_t cursorBack);

    // Put the text on the clipboard and press Ctrl+V, which takes half a second. False when the
    // clipboard can't be had or the keys can't be pressed; the log tells which.
    bool PasteText(std::u16string_view text, std::size_t cursorBack);
    bool PasteRich(std::u16string_view source, std::size_t cursorBack, Lcid language);

    // Puts plain text or Rich Text Format source on the clipboard alone. The language counts for
    // the latter.
    bool CopyToClipboard(bool plain, std::u16string_view text, Lcid language);

    // Presses Ctrl+V, then the left cursor key that often, in small portions. Any thread.
    bool SendPasteKeys(std::size_t cursorBack);

  private:
    bool Paste(std::size_t cursorBack);

    Collaborators with_;
};

}  // namespace vbr

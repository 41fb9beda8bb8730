// SPDX-License-Identifier: MIT
#include "exchange/selected_text.h"

#include <array>

#include "platform/clipboard_text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kCopyWaitMs = 400;

constexpr std::array<KeyEvent, 4> kCopyKeys = {{
    {.Vk = kVkControl, .Flags = kKeyUnicode},
    {.Vk = kVkC, .Flags = kKeyUnicode},
    {.Vk = kVkC, .Flags = kKeyUnicode | kKeyUp},
    {.Vk = kVkControl, .Flags = kKeyUnicode | kKeyUp},
}};

}  // namespace

std::u16string SelectedTextReader::ExtractSelectedText(WindowHandle target) {
    if (!mayCopy_) {
        return {};
    }
    with_.OwnCopy.AsynBlockClipboardHandler();
    if (const auto clipboard = with_.Clipboard.Open(0)) {
        clipboard->Empty();
    }
    with_.Input.Send(kCopyKeys);
    // Some windows answer only the key, others only the message.
    with_.Windows.SendCopy(target);
    with_.Clock.Sleep(kCopyWaitMs);
    return ReadAnyText(with_.Clipboard, with_.Ansi);
}

}  // namespace vbr

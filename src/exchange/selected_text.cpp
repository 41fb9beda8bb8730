// SPDX-License-Identifier: MIT
#include "exchange/selected_text.h"

#include <array>

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
    blockHistory_();
    clipboard_.Empty();
    input_.Send(kCopyKeys);
    // Some windows answer only the key, others only the message.
    windows_.SendCopy(target);
    clock_.Sleep(kCopyWaitMs);
    return clipboard_.Text();
}

}  // namespace vbr

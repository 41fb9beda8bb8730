// SPDX-License-Identifier: MIT
#include "platform/win32/win_system_error.h"

#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {

SystemError SystemErrorOf(std::uint32_t code) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const UniqueLocal<wchar_t> owned(text);
    const std::u16string all = FromWide(text, length);
    return {code, std::u16string(TrimRight(all, u" \r\n"))};
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_error_text.h"

#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {

std::uint32_t WinErrorText::LastError() const {
    return GetLastError();
}

std::u16string WinErrorText::TextOf(std::uint32_t code) const {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const UniqueLocal<wchar_t> owned(text);
    const std::u16string all = FromWide(text, length);
    return std::u16string(TrimRight(all, u" \r\n"));
}

}  // namespace vbr

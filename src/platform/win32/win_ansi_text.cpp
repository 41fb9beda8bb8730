// SPDX-License-Identifier: MIT
#include "platform/win32/win_ansi_text.h"

#include "platform/win32/windows.h"

#include <algorithm>
#include <limits>

#include "platform/win32/wide.h"

namespace vbr {
namespace {

// The conversions count in signed 32 bits.
constexpr std::size_t kMaxUnits = std::numeric_limits<int>::max();

}  // namespace

std::u16string WinAnsiText::FromAnsi(std::string_view text) const {
    if (text.size() > kMaxUnits) {
        return {};
    }
    const int bytes = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    std::u16string out(static_cast<std::size_t>(std::max(units, 0)), u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, Wide(out.data()), units);
    return out;
}

std::string WinAnsiText::ToAnsi(std::u16string_view text) const {
    if (text.size() > kMaxUnits) {
        return {};
    }
    const int units = static_cast<int>(text.size());
    const wchar_t* const wide = Wide(text.data());
    const int bytes =
        WideCharToMultiByte(CP_THREAD_ACP, 0, wide, units, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(std::max(bytes, 0)), '\0');
    WideCharToMultiByte(CP_THREAD_ACP, 0, wide, units, out.data(), bytes, nullptr, nullptr);
    return out;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_menu_font.h"

#include <bit>

namespace vbr {

std::array<std::uint8_t, sizeof(LOGFONTW)> SystemMenuFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return std::bit_cast<std::array<std::uint8_t, sizeof(LOGFONTW)>>(metrics.lfMenuFont);
}

}  // namespace vbr

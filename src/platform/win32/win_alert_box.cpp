// SPDX-License-Identifier: MIT
#include "platform/win32/win_alert_box.h"

#include "platform/win32/windows.h"

#include "platform/win32/wide.h"

namespace vbr {

void WinAlertBox::Show(std::u16string_view text, std::u16string_view title, std::uint32_t flags) {
    MessageBoxW(nullptr, Wide(std::u16string(text)), Wide(std::u16string(title)), flags);
}

}  // namespace vbr

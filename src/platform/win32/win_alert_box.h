// SPDX-License-Identifier: MIT
#pragma once

#include "platform/alert_box.h"

namespace vbr {

class WinAlertBox : public AlertBox {
  public:
    void Show(std::u16string_view text, std::u16string_view title, std::uint32_t flags) override;
};

}  // namespace vbr

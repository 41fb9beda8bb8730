// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vbr {

// A message box without an owner, which stands until the user closes it.
class AlertBox {
  public:
    virtual ~AlertBox() = default;

    // `flags` as the system's message box takes them: icon, buttons, place.
    virtual void Show(std::u16string_view text, std::u16string_view title, std::uint32_t flags) = 0;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/alert_box.h"

namespace vbr {

// Keeps what the user would have seen.
class FakeAlertBox : public AlertBox {
  public:
    struct Box {
        std::u16string Text;
        std::u16string Title;
        std::uint32_t Flags = 0;

        bool operator==(const Box&) const = default;
    };
    std::vector<Box> Shown;

    void Show(std::u16string_view text, std::u16string_view title, std::uint32_t flags) override {
        Shown.push_back({std::u16string(text), std::u16string(title), flags});
    }
};

}  // namespace vbr

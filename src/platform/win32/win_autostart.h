// SPDX-License-Identifier: MIT
#pragma once

#include "platform/autostart.h"

namespace vbr {

class WinAutostart : public Autostart {
  public:
    std::optional<std::u16string> Read() const override;
    bool Write(std::u16string_view commandLine) override;
    void Delete() override;
    void Allow() override;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/input_join.h"

namespace vbr {

// Joins by AttachThreadInput. Messages that other threads send to this one are answered meanwhile.
class WinInputJoin : public InputJoin {
  public:
    void Run(WindowHandle window, std::uint32_t patienceMs,
             const std::function<void(JoinState)>& work) override;
};

}  // namespace vbr

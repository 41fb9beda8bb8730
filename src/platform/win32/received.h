// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>

#include "platform/fault_catcher.h"

namespace vbr {

// What lies at the address that a message brought; nothing when it is null or no memory of this
// process. Anybody may have sent the message.
template <typename T>
std::optional<T> Received(FaultCatcher& faults, LPARAM address) {
    if (address == 0) {
        return std::nullopt;
    }
    return RunSilently(faults, std::optional<T>(),
                       [address] { return std::optional(*reinterpret_cast<const T*>(address)); });
}

}  // namespace vbr

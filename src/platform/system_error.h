// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vbr {

// A failed call of the system: its error code and the system's own text for it. Calls that can fail
// so give it as an optional that is empty on success.
struct SystemError {
    std::uint32_t Code = 0;
    std::u16string Text;

    bool operator==(const SystemError&) const = default;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vbr {

// The system's own words for its error codes.
class SystemErrorText {
  public:
    virtual ~SystemErrorText() = default;

    // The code of the last failed call of this thread.
    virtual std::uint32_t LastError() const = 0;
    virtual std::u16string TextOf(std::uint32_t code) const = 0;
};

}  // namespace vbr

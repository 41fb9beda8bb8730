// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/bitmap.h"

namespace vbr {

// Turns what the clipboard holds in its bitmap format into a picture, and back.
class Bitmaps {
  public:
    virtual ~Bitmaps() = default;

    // The picture owns the object from then on. Null when it is no bitmap or has no size.
    virtual std::shared_ptr<const Bitmap> FromObject(std::shared_ptr<void> object) = 0;
    // The object of a picture that came from here; null for any other.
    virtual std::shared_ptr<void> ObjectOf(const Bitmap& bitmap) = 0;
};

}  // namespace vbr

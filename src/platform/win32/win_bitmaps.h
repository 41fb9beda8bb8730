// SPDX-License-Identifier: MIT
#pragma once

#include "platform/bitmaps.h"

namespace vbr {

// Objects are HBITMAP, not selected into a device context by anyone.
class WinBitmaps : public Bitmaps {
  public:
    std::shared_ptr<const Bitmap> FromObject(std::shared_ptr<void> object) override;
    std::shared_ptr<void> ObjectOf(const Bitmap& bitmap) override;
};

}  // namespace vbr

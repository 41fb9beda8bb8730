// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/handle.h"

namespace vbr {

// Owns a font, brush, pen or bitmap, which no device context may hold when this ends.
template <typename Handle>
using UniqueGdi = Unique<Handle, DeleteObject>;
using UniqueIcon = Unique<HICON, DestroyIcon>;
using UniqueDc = Unique<HDC, DeleteDC>;

// Everything chosen into the device context meanwhile is undone.
class SavedDc {
  public:
    explicit SavedDc(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
    ~SavedDc() { RestoreDC(dc_, state_); }
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;

  private:
    HDC dc_;
    int state_;
};

}  // namespace vbr

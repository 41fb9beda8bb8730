// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <type_traits>

namespace vbr {

// Owns a font, brush, pen or bitmap, which no device context may hold when this ends.
template <typename Handle>
struct GdiDeleter {
    using pointer = Handle;
    void operator()(Handle handle) const { DeleteObject(handle); }
};
template <typename Handle>
using UniqueGdi = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter<Handle>>;

struct IconDestroyer {
    using pointer = HICON;
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;

struct DcDeleter {
    using pointer = HDC;
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using UniqueDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

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

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr::hook {

// A view of a mapping's first bytes; none when there is no mapping or it is smaller.
class MappedView {
  public:
    MappedView(HANDLE mapping, DWORD access, SIZE_T bytes)
        : start_(mapping ? MapViewOfFile(mapping, access, 0, 0, bytes) : nullptr) {}
    ~MappedView() {
        if (start_) {
            UnmapViewOfFile(start_);
        }
    }
    MappedView(const MappedView&) = delete;
    MappedView& operator=(const MappedView&) = delete;

    explicit operator bool() const { return start_ != nullptr; }

    template <typename T>
    T* As() const {
        return static_cast<T*>(start_);
    }

  private:
    void* start_;
};

}  // namespace vbr::hook

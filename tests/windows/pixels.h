// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <vector>

namespace vbr {

inline BITMAPINFO PixelLayout(LONG width, LONG height) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

// A bitmap's pixels as 0xRRGGBB, the lowest line first.
inline std::vector<DWORD> PixelsOf(HANDLE bitmap) {
    BITMAP size{};
    GetObjectW(bitmap, sizeof size, &size);
    BITMAPINFO info = PixelLayout(size.bmWidth, size.bmHeight);
    std::vector<DWORD> pixels(static_cast<std::size_t>(size.bmWidth * size.bmHeight));
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, static_cast<HBITMAP>(bitmap), 0, static_cast<UINT>(size.bmHeight),
              pixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return pixels;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "base/geometry.h"

namespace vbr {

inline Point FromWin(POINT point) {
    return {point.x, point.y};
}
inline Size FromWin(SIZE size) {
    return {size.cx, size.cy};
}
inline Rect FromWin(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline POINT ToWin(Point point) {
    return {point.X, point.Y};
}
inline RECT ToWin(const Rect& rect) {
    return {rect.Left, rect.Top, rect.Right, rect.Bottom};
}

}  // namespace vbr

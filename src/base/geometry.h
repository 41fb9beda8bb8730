// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// Points, sizes and rectangles in pixels, y down.
struct Point {
    std::int32_t X = 0;
    std::int32_t Y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    std::int32_t Width = 0;
    std::int32_t Height = 0;

    bool operator==(const Size&) const = default;
};

// Right and bottom lie outside.
struct Rect {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    constexpr std::int32_t Width() const { return Right - Left; }
    constexpr std::int32_t Height() const { return Bottom - Top; }

    bool operator==(const Rect&) const = default;
};

// Dots an inch at which measures are told.
inline constexpr int kUsualDpi = 96;

// The measure at that many dots an inch, rounded.
constexpr int ScaleToDpi(int measure, int dpi) {
    const int half = measure < 0 ? -kUsualDpi / 2 : kUsualDpi / 2;
    return (measure * dpi + half) / kUsualDpi;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// Dots an inch at which measures are told.
inline constexpr int kUsualDpi = 96;

// The measure at that many dots an inch, rounded.
constexpr int ScaleToDpi(int measure, int dpi) {
    const int half = measure < 0 ? -kUsualDpi / 2 : kUsualDpi / 2;
    return (measure * dpi + half) / kUsualDpi;
}

struct MenuPoint {
    int X = 0;
    int Y = 0;

    bool operator==(const MenuPoint&) const = default;
};

struct MenuSize {
    int Width = 0;
    int Height = 0;

    bool operator==(const MenuSize&) const = default;
};

// Right and bottom lie outside.
struct MenuRect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }

    bool operator==(const MenuRect&) const = default;
};

}  // namespace vbr

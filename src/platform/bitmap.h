// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vbr {

// The head of a device-independent bitmap, field by field as Win32's BITMAPINFOHEADER.
struct BitmapHeader {
    std::uint32_t Size = 40;
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::uint16_t Planes = 1;
    std::uint16_t BitCount = 0;
    std::uint32_t Compression = 0;
    std::uint32_t SizeImage = 0;  // bytes of the bits
    std::int32_t XPelsPerMeter = 0;
    std::int32_t YPelsPerMeter = 0;
    std::uint32_t ClrUsed = 0;
    std::uint32_t ClrImportant = 0;

    bool operator==(const BitmapHeader&) const = default;
};

// The colour table, four bytes a colour, and the rows of pixels.
struct BitmapBits {
    std::vector<std::byte> Colors;
    std::vector<std::byte> Bits;

    bool operator==(const BitmapBits&) const = default;
};

// A picture of the system's that does not change.
class Bitmap {
  public:
    virtual ~Bitmap() = default;

    // As the system tells it, SizeImage filled; nothing for a bitmap of no size.
    virtual std::optional<BitmapHeader> Header() const = 0;
    // The picture in the form that the header asks for: `ClrUsed` colours, or none, and `SizeImage`
    // bytes. Nothing when the system can't give it.
    virtual std::optional<BitmapBits> Read(const BitmapHeader& header) const = 0;
};

}  // namespace vbr

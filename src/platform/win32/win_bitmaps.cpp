// SPDX-License-Identifier: MIT
#include "platform/win32/win_bitmaps.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/win32/gdi_handle.h"

namespace vbr {
namespace {

static_assert(sizeof(BitmapHeader) == sizeof(BITMAPINFOHEADER));

// A bitmap of up to eight bits has so many colours; one of more bits has up to three masks there.
constexpr std::size_t kMaxColors = 256;

// A header with the room for colours that a call may fill.
class HeaderAndColors {
  public:
    explicit HeaderAndColors(const BitmapHeader& header)
        : bytes_(sizeof header +
                 std::max<std::size_t>(kMaxColors, header.ClrUsed) * sizeof(RGBQUAD)) {
        std::memcpy(bytes_.data(), &header, sizeof header);
    }

    BITMAPINFO* Info() { return reinterpret_cast<BITMAPINFO*>(bytes_.data()); }
    BitmapHeader Header() const {
        BitmapHeader header;
        std::memcpy(&header, bytes_.data(), sizeof header);
        return header;
    }
    std::vector<std::byte> Colors(std::size_t count) const {
        const auto begin = bytes_.begin() + sizeof(BitmapHeader);
        return {begin, begin + static_cast<std::ptrdiff_t>(count * sizeof(RGBQUAD))};
    }

  private:
    std::vector<std::byte> bytes_;
};

std::size_t RowBytes(const BitmapHeader& header) {
    return (static_cast<std::size_t>(header.Width) * header.BitCount + 31) / 32 * 4;
}

class WinBitmap : public Bitmap {
  public:
    explicit WinBitmap(std::shared_ptr<void> object) : object_(std::move(object)) {}

    const std::shared_ptr<void>& Object() const { return object_; }

    std::optional<BitmapHeader> Header() const override {
        const UniqueDc device(CreateCompatibleDC(nullptr));
        HeaderAndColors info{BitmapHeader{}};
        if (!device ||
            !GetDIBits(device.get(), Handle(), 0, 0, nullptr, info.Info(), DIB_RGB_COLORS)) {
            return std::nullopt;
        }
        BitmapHeader header = info.Header();
        if (header.Width <= 0 || header.Height == 0) {
            return std::nullopt;
        }
        if (header.SizeImage == 0) {
            const auto rows = static_cast<std::size_t>(std::abs(header.Height));
            header.SizeImage = static_cast<std::uint32_t>(RowBytes(header) * rows);
        }
        return header;
    }

    std::optional<BitmapBits> Read(const BitmapHeader& header) const override {
        // The system trusts that the buffer holds all rows.
        const auto rows = static_cast<std::size_t>(std::abs(std::int64_t{header.Height}));
        const UniqueDc device(CreateCompatibleDC(nullptr));
        if (!device || header.Width <= 0 || header.SizeImage < RowBytes(header) * rows) {
            return std::nullopt;
        }
        try {
            HeaderAndColors info(header);
            BitmapBits bits;
            bits.Bits.resize(header.SizeImage);
            if (GetDIBits(device.get(), Handle(), 0, static_cast<UINT>(rows), bits.Bits.data(),
                          info.Info(), DIB_RGB_COLORS) != static_cast<int>(rows)) {
                return std::nullopt;
            }
            bits.Colors = info.Colors(header.ClrUsed);
            return bits;
        } catch (const std::bad_alloc&) {
            return std::nullopt;
        }
    }

  private:
    HBITMAP Handle() const { return static_cast<HBITMAP>(object_.get()); }

    std::shared_ptr<void> object_;
};

}  // namespace

std::shared_ptr<const Bitmap> WinBitmaps::FromObject(std::shared_ptr<void> object) {
    auto bitmap = std::make_shared<const WinBitmap>(std::move(object));
    return bitmap->Header() ? bitmap : nullptr;
}

std::shared_ptr<void> WinBitmaps::ObjectOf(const Bitmap& bitmap) {
    const auto* const ours = dynamic_cast<const WinBitmap*>(&bitmap);
    return ours ? ours->Object() : nullptr;
}

}  // namespace vbr

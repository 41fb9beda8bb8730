// SPDX-License-Identifier: MIT
#include "history/item_export.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <span>
#include <string_view>
#include <utility>

namespace vbr {
namespace {

constexpr std::byte kUtf16Mark[] = {std::byte{0xFF}, std::byte{0xFE}};
constexpr std::uint16_t kBitmapMark = 0x4D42;  // "BM"
constexpr std::uint32_t kFileHeadSize = 14;
constexpr std::uint32_t kHeaderSize = 40;
constexpr std::uint32_t kColorSize = 4;
constexpr std::uint16_t kBitCounts[] = {1, 4, 8, 16, 24, 32};

static_assert(sizeof(BitmapHeader) == kHeaderSize);

template <typename Value>
void Append(std::vector<std::byte>& bytes, const Value& value) {
    const auto raw = std::as_bytes(std::span(&value, 1));
    bytes.insert(bytes.end(), raw.begin(), raw.end());
}

template <typename Unit>
std::vector<std::byte> WithoutTerminator(std::basic_string_view<Unit> text) {
    const auto raw = std::as_bytes(std::span(text.data(), text.size()));
    return {raw.begin(), raw.end()};
}

// What the bitmap's bits are asked for in: uncompressed, with all colours of a small depth.
std::optional<BitmapHeader> FileHeader(const Bitmap& bitmap) {
    const auto own = bitmap.Header();
    // A negative height is that of rows from the top; a file has them from the bottom.
    const std::int64_t rows = own ? std::abs(std::int64_t{own->Height}) : 0;
    if (!own || own->Width <= 0 || rows == 0) {
        return std::nullopt;
    }
    BitmapHeader header;
    header.Width = own->Width;
    header.Height = static_cast<std::int32_t>(rows);
    header.Planes = own->Planes;
    header.BitCount = own->BitCount;
    const auto wanted = static_cast<std::uint16_t>(own->Planes * own->BitCount);
    const auto* const bits = std::ranges::lower_bound(kBitCounts, wanted);
    if (bits == std::end(kBitCounts)) {
        return std::nullopt;
    }
    const std::uint64_t rowBytes =
        (std::uint64_t{*bits} * static_cast<std::uint32_t>(header.Width) + 31) / 32 * 4;
    const std::uint64_t size = rowBytes * static_cast<std::uint64_t>(rows);
    header.ClrUsed = *bits < 24 ? 1U << *bits : 0;
    const std::uint64_t head = kFileHeadSize + kHeaderSize + kColorSize * header.ClrUsed;
    if (head + size > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    header.SizeImage = static_cast<std::uint32_t>(size);
    return header;
}

}  // namespace

std::optional<ItemFile> ExportItem(const CCHItem& item) {
    switch (item.format) {
        case CHF_UNICODE_TEXT:
            return ItemFile{{std::begin(kUtf16Mark), std::end(kUtf16Mark)},
                            WithoutTerminator(item.WideText())};
        case CHF_ANSI_TEXT:
        case CHF_RTF:
            return ItemFile{{}, WithoutTerminator(item.ByteText())};
        case CHF_BITMAP:
            return item.Picture() ? ExportBitmap(*item.Picture()) : std::nullopt;
        default:
            return ItemFile{{}, item.Data()};
    }
}

std::optional<ItemFile> ExportBitmap(const Bitmap& bitmap) {
    const auto header = FileHeader(bitmap);
    auto bits = header ? bitmap.Read(*header) : std::nullopt;
    if (!bits) {
        return std::nullopt;
    }
    const std::uint32_t offset = kFileHeadSize + kHeaderSize + kColorSize * header->ClrUsed;
    ItemFile file;
    Append(file.Head, kBitmapMark);
    Append(file.Head, offset + header->SizeImage);
    Append(file.Head, std::uint32_t{0});
    Append(file.Head, offset);
    Append(file.Head, *header);
    bits->Colors.resize(kColorSize * header->ClrUsed);
    file.Head.insert(file.Head.end(), bits->Colors.begin(), bits->Colors.end());
    file.Body = std::move(bits->Bits);
    return file;
}

bool WriteItemFile(const std::filesystem::path& path, const ItemFile& file) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    for (const auto* const piece : {&file.Head, &file.Body}) {
        stream.write(reinterpret_cast<const char*>(piece->data()),
                     static_cast<std::streamsize>(piece->size()));
    }
    stream.close();
    return stream.good();
}

bool WriteBitmapFile(const std::filesystem::path& path, const Bitmap& bitmap) {
    const auto file = ExportBitmap(bitmap);
    return file && WriteItemFile(path, *file);
}

}  // namespace vbr

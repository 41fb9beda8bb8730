// SPDX-License-Identifier: MIT
#include "menu/win32/menu_icons.h"

#include <cstdint>
#include <shellapi.h>
#include <vector>

#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

int ResourceOf(MenuIcon kind) {
    switch (kind) {
        case MenuIcon::FormattedText:
            return kIconFormattedText;
        case MenuIcon::SearchOne:
            return kIconGoogle;
        case MenuIcon::SearchTwo:
            return kIconYandex;
        case MenuIcon::Url:
            return kIconUrl;
        default:
            return kIconExecute;
    }
}

// The icon that the shell shows for text files.
UniqueIcon LoadPlainTextIcon() {
    SHFILEINFOW info{};
    SHGetFileInfoW(L"a.txt", FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                   SHGFI_USEFILEATTRIBUTES | SHGFI_ICON | SHGFI_SMALLICON);
    return UniqueIcon(info.hIcon);
}

// As the eye weighs the colours.
std::uint32_t WithoutColour(std::uint32_t pixel) {
    const std::uint32_t red = pixel >> 16 & 0xFF;
    const std::uint32_t green = pixel >> 8 & 0xFF;
    const std::uint32_t blue = pixel & 0xFF;
    return (pixel & 0xFF000000) | (red * 77 + green * 151 + blue * 28) / 256 * 0x010101;
}

}  // namespace

HICON MenuIcons::Get(MenuIcon kind, int size) {
    if (kind == MenuIcon::None) {
        return nullptr;
    }
    if (kind != MenuIcon::PlainText) {
        return GetResource(ResourceOf(kind), size);
    }
    if (!plainTextTried_) {
        plainTextTried_ = true;
        plainText_ = LoadPlainTextIcon();
    }
    return plainText_.get();
}

HICON MenuIcons::GetResource(int id, int size) {
    UniqueIcon& icon = resources_[{id, size}];
    if (!icon) {
        icon.reset(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                 IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
    }
    return icon.get();
}

HICON MenuIcons::GetProgram(const std::u16string& path) {
    const auto [place, isNew] = programs_.try_emplace(path);
    SHFILEINFOW info{};
    if (isNew && SHGetFileInfoW(Wide(path), 0, &info, sizeof info, SHGFI_ICON | SHGFI_SMALLICON)) {
        place->second.reset(info.hIcon);
    }
    return place->second.get();
}

UniqueIcon MakeGrayIcon(HICON icon) {
    ICONINFO info{};
    if (!GetIconInfo(icon, &info)) {
        return nullptr;
    }
    const UniqueGdi<HBITMAP> mask(info.hbmMask);
    const UniqueGdi<HBITMAP> color(info.hbmColor);
    BITMAP size{};
    if (!color || GetObjectW(color.get(), sizeof size, &size) == 0) {
        return nullptr;
    }
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = size.bmWidth;
    format.bmiHeader.biHeight = -size.bmHeight;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.bmWidth) *
                                      static_cast<std::size_t>(size.bmHeight));
    const UniqueDc dc(CreateCompatibleDC(nullptr));
    const auto lines = static_cast<UINT>(size.bmHeight);
    if (GetDIBits(dc.get(), color.get(), 0, lines, pixels.data(), &format, DIB_RGB_COLORS) == 0) {
        return nullptr;
    }
    for (std::uint32_t& pixel : pixels) {
        pixel = WithoutColour(pixel);
    }
    SetDIBits(dc.get(), color.get(), 0, lines, pixels.data(), &format, DIB_RGB_COLORS);
    return UniqueIcon(CreateIconIndirect(&info));
}

}  // namespace vbr

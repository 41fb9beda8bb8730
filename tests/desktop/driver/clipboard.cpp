// SPDX-License-Identifier: MIT
#include "desktop/driver/clipboard.h"

#include "platform/win32/windows.h"

#include <string_view>

#include "desktop/driver/waiting.h"
#include "windows/global_memory.h"

namespace vbr::desktop {
namespace {

constexpr int kBitmapWidth = 3;
constexpr int kBitmapHeight = 2;

HBITMAP Bitmap() {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, kBitmapWidth, kBitmapHeight);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    for (int x = 0; x < kBitmapWidth; ++x) {
        for (int y = 0; y < kBitmapHeight; ++y) {
            SetPixel(memory, x, y, RGB(80 * x, 120 * y, 7));
        }
    }
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

std::string Pixels(HBITMAP bitmap) {
    BITMAP size{};
    GetObjectW(bitmap, sizeof size, &size);
    BITMAPINFO info{};
    info.bmiHeader = {
        sizeof info.bmiHeader, size.bmWidth, size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::string pixels(static_cast<std::size_t>(size.bmWidth * size.bmHeight) * 4, '\0');
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.bmHeight), pixels.data(), &info,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return pixels;
}

std::string BytesOf(UINT format, HANDLE data) {
    if (format == CF_BITMAP) {
        return Pixels(static_cast<HBITMAP>(data));
    }
    const auto* bytes = static_cast<const char*>(GlobalLock(data));
    std::string copy = bytes ? std::string(bytes, GlobalSize(data)) : std::string();
    GlobalUnlock(data);
    return copy;
}

bool Open() {
    return WaitUntil([] { return OpenClipboard(nullptr) != 0; });
}

}  // namespace

ClipboardContent FillClipboard() {
    if (Open()) {
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, MemoryOf({"k\0e\0p\0t\0\0\0", 10}));
        SetClipboardData(RegisterClipboardFormatW(L"Rich Text Format"), MemoryOf("{\\rtf1 kept}"));
        SetClipboardData(RegisterClipboardFormatW(L"HTML Format"), MemoryOf("<b>kept</b>"));
        SetClipboardData(CF_BITMAP, Bitmap());
        SetClipboardData(RegisterClipboardFormatW(L"Test Private"), MemoryOf({"\0\1\2", 3}));
        CloseClipboard();
    }
    return ReadClipboard();
}

ClipboardContent ReadClipboard() {
    ClipboardContent content;
    if (!Open()) {
        return content;
    }
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        wchar_t name[100];
        const int length = GetClipboardFormatNameW(format, name, 100);
        const HANDLE data = GetClipboardData(format);
        content[length > 0 ? std::wstring(name) : std::to_wstring(format)] =
            data ? BytesOf(format, data) : std::string();
    }
    CloseClipboard();
    return content;
}

}  // namespace vbr::desktop

// SPDX-License-Identifier: MIT
#include "desktop/driver/clipboard.h"

#include "platform/win32/windows.h"

#include <string_view>

#include "desktop/driver/waiting.h"
#include "windows/global_memory.h"
#include "windows/pixels.h"

namespace vbr::desktop {
namespace {

constexpr DWORD kPixels[] = {0x000007, 0x500007, 0xA00007, 0x007807, 0x507807, 0xA07807};

std::string BytesOf(UINT format, HANDLE data) {
    if (format == CF_BITMAP) {
        const std::vector<DWORD> pixels = PixelsOf(data);
        return {reinterpret_cast<const char*>(pixels.data()), pixels.size() * sizeof(DWORD)};
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
        SetClipboardData(CF_BITMAP, CreateBitmap(3, 2, 1, 32, kPixels));
        SetClipboardData(RegisterClipboardFormatW(L"Test Private"), MemoryOf({"\0\1\2", 3}));
        CloseClipboard();
    }
    return ReadClipboard();
}

ClipboardContent ReadClipboard() {
    static ClipboardContent content;
    static DWORD readAt = 0;
    if (readAt == GetClipboardSequenceNumber()) {
        return content;
    }
    content.clear();
    if (!Open()) {
        return content;
    }
    readAt = GetClipboardSequenceNumber();
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

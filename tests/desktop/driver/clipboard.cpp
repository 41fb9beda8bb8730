// SPDX-License-Identifier: MIT
#include "desktop/driver/clipboard.h"

#include "platform/win32/windows.h"

#include "desktop/driver/waiting.h"

namespace vbr::desktop {
namespace {

std::string BytesOf(HANDLE data) {
    const auto* bytes = static_cast<const char*>(GlobalLock(data));
    std::string copy = bytes ? std::string(bytes, GlobalSize(data)) : std::string();
    GlobalUnlock(data);
    return copy;
}

}  // namespace

ClipboardContent ReadClipboard() {
    static ClipboardContent content;
    static DWORD readAt = 0;
    if (readAt == GetClipboardSequenceNumber()) {
        return content;
    }
    content.clear();
    if (!WaitUntil([] { return OpenClipboard(nullptr) != 0; })) {
        return content;
    }
    readAt = GetClipboardSequenceNumber();
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        wchar_t name[100];
        const int length = GetClipboardFormatNameW(format, name, 100);
        const HANDLE data = GetClipboardData(format);
        content[length > 0 ? std::wstring(name) : std::to_wstring(format)] =
            data ? BytesOf(data) : std::string();
    }
    CloseClipboard();
    return content;
}

}  // namespace vbr::desktop

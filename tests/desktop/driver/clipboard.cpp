// SPDX-License-Identifier: MIT
#include "desktop/driver/clipboard.h"

#include "platform/win32/windows.h"

#include <algorithm>

#include "desktop/driver/waiting.h"
#include "platform/clipboard_blocks.h"
#include "platform/win32/wide.h"

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
    for (const ClipboardBlock& mark : PassingMarks()) {
        content.erase(Wide(mark.Name));
    }
    return content;
}

bool IsClipboardMarked() {
    const std::vector<ClipboardBlock> marks = PassingMarks();
    return std::all_of(marks.begin(), marks.end(), [](const ClipboardBlock& mark) {
        return IsClipboardFormatAvailable(RegisterClipboardFormatW(Wide(mark.Name)));
    });
}

}  // namespace vbr::desktop

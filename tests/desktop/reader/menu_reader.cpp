// SPDX-License-Identifier: MIT
// A library for the program's own process: from outside, the system does not tell what stands in a
// menu of another process.
#include "desktop/reader/menu_reader.h"

#include "platform/win32/windows.h"

#include <cstring>
#include <oleacc.h>
#include <string>

namespace {

using namespace vbr::desktop;

constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

// As a screen reader does it: an owner-drawn item's data begins with its name.
std::wstring NameOf(const MENUITEMINFOW& item, bool& isAccessible) {
    const auto* block = reinterpret_cast<const MSAAMENUINFO*>(item.dwItemData);
    isAccessible = block && block->dwMSAASignature == static_cast<DWORD>(MSAA_MENU_SIG) &&
                   block->pszWText && wcslen(block->pszWText) == block->cchWText;
    return isAccessible ? std::wstring(block->pszWText, block->cchWText) : std::wstring();
}

std::wstring StringOf(HMENU menu, UINT position) {
    wchar_t text[512];
    const int length = GetMenuStringW(menu, position, text, 512, MF_BYPOSITION);
    return std::wstring(text, static_cast<std::size_t>(length > 0 ? length : 0));
}

void ReadItems(HMENU menu, int depth, std::wstring& out) {
    const auto count = static_cast<UINT>(GetMenuItemCount(menu));
    for (UINT i = 0; i < count; ++i) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_DATA | MIIM_SUBMENU | MIIM_ID;
        GetMenuItemInfoW(menu, i, TRUE, &item);
        bool isAccessible = false;
        const std::wstring name =
            (item.fType & MFT_OWNERDRAW) != 0 ? NameOf(item, isAccessible) : StringOf(menu, i);
        RECT rect{};
        GetMenuItemRect(nullptr, menu, i, &rect);
        for (const long number :
             {static_cast<long>(depth), static_cast<long>(item.hSubMenu ? 0 : item.wID),
              static_cast<long>(item.fState), static_cast<long>(isAccessible), rect.left, rect.top,
              rect.right, rect.bottom}) {
            out += std::to_wstring(number) + L"\t";
        }
        out += name + L"\n";
        if (item.hSubMenu) {
            ReadItems(item.hSubMenu, depth + 1, out);
        }
    }
}

void Deliver(const std::wstring& text) {
    const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, kReaderMapping);
    void* view = mapping ? MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0) : nullptr;
    if (view && (text.size() + 1) * sizeof(wchar_t) <= kReaderMappingBytes) {
        std::memcpy(view, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    if (view) {
        UnmapViewOfFile(view);
    }
    if (mapping) {
        CloseHandle(mapping);
    }
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    ReadMenuHook(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT readMenu = RegisterWindowMessageW(kReadMenuMessage);
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == readMenu) {
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(message->hwnd, kGetMenu, 0, 0));
        std::wstring text;
        ReadItems(menu, 0, text);
        Deliver(text);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

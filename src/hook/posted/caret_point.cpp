// SPDX-License-Identifier: MIT
#include "hook/posted/caret_point.h"

#include <oleacc.h>

#include "platform/win32/handle.h"
#include "platform/win32/loaded_function.h"

namespace vbr::hook {
namespace {

constexpr GUID kIidAccessible = {
    0x618736e0, 0x3c3d, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

// A window that knows nothing of scaling sees other coordinates than the screen has.
POINT ToPhysical(HWND window, POINT point) {
    using Convert = BOOL(WINAPI*)(HWND, POINT*);
    const auto convert = FunctionOf<Convert>(GetModuleHandleW(L"user32.dll"),
                                             "LogicalToPhysicalPointForPerMonitorDPI");
    POINT physical = point;
    return convert && convert(window, &physical) ? physical : point;
}

LONG Within(LONG value, LONG low, LONG high) {
    return value < low ? low : value > high ? high : value;
}

void Release(IAccessible* object) {
    object->Release();
}

}  // namespace

std::optional<POINT> PointBelowCaret(const GUITHREADINFO& thread) {
    const RECT& caret = thread.rcCaret;
    RECT client;
    if (!thread.hwndCaret || caret.bottom <= caret.top ||
        !GetClientRect(thread.hwndCaret, &client)) {
        return std::nullopt;
    }
    // The text may be scrolled away from its caret.
    POINT point = {Within(caret.left, client.left, client.right),
                   Within(caret.bottom, client.top, client.bottom)};
    if (!ClientToScreen(thread.hwndCaret, &point)) {
        return std::nullopt;
    }
    return ToPhysical(thread.hwndCaret, point);
}

std::optional<POINT> PointBelowAccessibleCaret(HWND window) {
    // From nowhere but the system's folder.
    const UniqueLibrary library(
        LoadLibraryExW(L"oleacc.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    using ObjectFromWindow = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
    const auto objectFromWindow =
        FunctionOf<ObjectFromWindow>(library.get(), "AccessibleObjectFromWindow");
    void* found = nullptr;
    if (!objectFromWindow ||
        FAILED(objectFromWindow(window, static_cast<DWORD>(OBJID_CARET), kIidAccessible, &found)) ||
        !found) {
        return std::nullopt;
    }
    const Unique<IAccessible*, Release> caret(static_cast<IAccessible*>(found));
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    if (FAILED(caret->accLocation(&left, &top, &width, &height, self)) || height <= 0) {
        return std::nullopt;
    }
    return POINT{left, top + height};
}

}  // namespace vbr::hook

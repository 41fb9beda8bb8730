// SPDX-License-Identifier: MIT
#include "platform/win32/screen_dpi.h"

#include "platform/win32/handle.h"
#include "platform/win32/loaded_function.h"

namespace vbr {
namespace {

void ReleaseScreen(HDC screen) {
    ReleaseDC(nullptr, screen);
}

// A function that older systems lack; null there.
template <typename Function>
Function Find(const wchar_t* library, const char* name) {
    return FunctionOf<Function>(LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32),
                                name);
}

}  // namespace

int SystemDpi() {
    const Unique<HDC, ReleaseScreen> screen(GetDC(nullptr));
    return GetDeviceCaps(screen.get(), LOGPIXELSY);
}

int DpiAt(POINT point) {
    using GetDpi = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
    constexpr int kEffective = 0;
    static const auto getDpi = Find<GetDpi>(L"shcore.dll", "GetDpiForMonitor");
    UINT x = 0;
    UINT y = 0;
    const HMONITOR monitor = MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST);
    if (!getDpi || FAILED(getDpi(monitor, kEffective, &x, &y)) || y == 0) {
        return SystemDpi();
    }
    return static_cast<int>(y);
}

int MenuHeightFor(int dpi) {
    using GetParameters = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto getParameters =
        Find<GetParameters>(L"user32.dll", "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (getParameters && getParameters(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                       static_cast<UINT>(dpi))) {
        return metrics.iMenuHeight;
    }
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return MulDiv(metrics.iMenuHeight, dpi, SystemDpi());
}

}  // namespace vbr

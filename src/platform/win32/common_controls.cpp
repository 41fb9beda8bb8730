// SPDX-License-Identifier: MIT
#include "platform/win32/common_controls.h"

#include <commctrl.h>

#include "platform/win32/system_library.h"

namespace vbr {

void UseCommonControls(DWORD classes) {
    static const HMODULE library = LoadSystemLibrary(L"comctl32.dll").release();
    if (const auto init =
            FunctionOf<decltype(&InitCommonControlsEx)>(library, "InitCommonControlsEx")) {
        const INITCOMMONCONTROLSEX controls{sizeof controls, classes};
        init(&controls);
    }
}

}  // namespace vbr

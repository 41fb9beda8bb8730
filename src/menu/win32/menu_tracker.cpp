// SPDX-License-Identifier: MIT
#include "menu/win32/menu_tracker.h"

namespace vbr {

HWND CMenuTracker::Create() {
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_Menu_Tracker";
    creation.Style = WS_CHILD;
    creation.Parent = HWND_MESSAGE;
    WindowBase::Create(creation);
    return Handle();
}

std::optional<LRESULT> CMenuTracker::OnMessage(UINT, WPARAM, LPARAM) {
    return std::nullopt;
}

}  // namespace vbr

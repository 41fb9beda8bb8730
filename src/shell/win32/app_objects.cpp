// SPDX-License-Identifier: MIT
#include "shell/win32/app_objects.h"

#include <atomic>

namespace vbr {
namespace {

std::atomic<HWND> g_trayWindow = nullptr;
std::atomic<NamedEvent*> g_stopEvent = nullptr;

}  // namespace

HWND CAppObjects::TrayWindow() {
    return g_trayWindow;
}
void CAppObjects::SetTrayWindow(HWND window) {
    g_trayWindow = window;
}

NamedEvent* CAppObjects::StopEvent() {
    return g_stopEvent;
}
void CAppObjects::SetStopEvent(NamedEvent* event) {
    g_stopEvent = event;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/auto_foreground_window.h"

#include "platform/win32/answering.h"

namespace vbr {
namespace {

bool IsForeign(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return window && process != GetCurrentProcessId();
}

// The system lets only the thread in front, or one attached to it, change the foreground. Attached
// to a thread that hangs, this one would hang too.
void SetForegroundFrom(HWND window, HWND attachTo) {
    const DWORD thread = GetWindowThreadProcessId(attachTo, nullptr);
    const bool attached = IsForeign(attachTo) && Answers(attachTo) &&
                          AttachThreadInput(GetCurrentThreadId(), thread, TRUE);
    SetForegroundWindow(window);
    if (attached) {
        AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
    }
    // Where letting go of the other thread's input has left the foreground with it.
    if (GetForegroundWindow() != window) {
        SetForegroundWindow(window);
    }
}

}  // namespace

CAutoForegroundWindow::CAutoForegroundWindow(HWND window) : previous_(GetForegroundWindow()) {
    SetForegroundFrom(window, previous_);
}

CAutoForegroundWindow::~CAutoForegroundWindow() {
    if (IsForeign(previous_)) {
        SetForegroundFrom(previous_, previous_);
    }
}

}  // namespace vbr

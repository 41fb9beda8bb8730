// SPDX-License-Identifier: MIT
#include "platform/win32/win_input_join.h"

#include "platform/win32/windows.h"

#include <system_error>
#include <thread>

#include "platform/win32/answering.h"
#include "platform/win32/handle.h"

namespace vbr {
namespace {

// 0 for a window whose thread must not be joined: one that hangs would hang the joined thread too,
// and the one that waits here reads nothing.
DWORD ThreadToJoin(HWND window) {
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    return thread != GetCurrentThreadId() && Answers(window) ? thread : 0;
}

// A thread has an input queue only once it asks for messages.
void MakeQueue() {
    MSG ignored;
    PeekMessageW(&ignored, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

void RunJoined(DWORD thread, const std::function<void(bool)>& work) {
    MakeQueue();
    const bool isJoined = thread != 0 && AttachThreadInput(GetCurrentThreadId(), thread, TRUE);
    work(isJoined);
    if (isJoined) {
        AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
    }
}

// The target may send messages to windows of this thread and wait for the answer: it empties a
// clipboard that this program owns, or tells a chain of viewers.
void WaitAnswering(HANDLE event) {
    while (MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_SENDMESSAGE) != WAIT_OBJECT_0) {
        MSG ignored;
        PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace

// A thread with windows of its own would have to read the input of all of them, or the target
// waits for it.
void WinInputJoin::Run(WindowHandle window, const std::function<void(bool isJoined)>& work) {
    const DWORD thread = ThreadToJoin(reinterpret_cast<HWND>(window));
    const UniqueHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    try {
        std::thread worker([&] {
            RunJoined(thread, work);
            SetEvent(done.get());
        });
        WaitAnswering(done.get());
        worker.join();
    } catch (const std::system_error&) {
        work(false);
    }
}

}  // namespace vbr

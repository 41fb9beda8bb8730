// SPDX-License-Identifier: MIT
#include "platform/win32/win_input_join.h"

#include "platform/win32/windows.h"

#include <system_error>
#include <thread>

#include "platform/win32/answering.h"
#include "platform/win32/handle.h"

namespace vbr {
namespace {

// A thread has an input queue only once it asks for messages.
void MakeQueue() {
    MSG ignored;
    PeekMessageW(&ignored, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

void RunJoined(DWORD thread, const std::function<void(JoinState)>& work) {
    MakeQueue();
    const bool isJoined = AttachThreadInput(GetCurrentThreadId(), thread, TRUE) != 0;
    work(isJoined ? JoinState::Joined : JoinState::Refused);
    if (isJoined) {
        AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
    }
}

// The target may send messages to windows of this thread and wait for the answer: it empties a
// clipboard that this program owns, or tells a chain of viewers.
void WaitAnswering(HANDLE event) {
    while (MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_SENDMESSAGE) ==
           WAIT_OBJECT_0 + 1) {
        MSG ignored;
        PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace

// A thread with windows of its own would have to read the input of all of them, or the target
// waits for it. One that is joined with a hung one would hang too.
void WinInputJoin::Run(WindowHandle window, std::uint32_t patienceMs,
                       const std::function<void(JoinState)>& work) {
    const HWND target = reinterpret_cast<HWND>(window);
    const DWORD thread = GetWindowThreadProcessId(target, nullptr);
    // The one that waits here reads nothing.
    if (thread == GetCurrentThreadId()) {
        work(JoinState::Refused);
        return;
    }
    if (!Answers(target, patienceMs)) {
        work(IsWindow(target) ? JoinState::Hung : JoinState::Refused);
        return;
    }
    const UniqueHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    try {
        std::thread worker([&] {
            RunJoined(thread, work);
            SetEvent(done.get());
        });
        WaitAnswering(done.get());
        worker.join();
    } catch (const std::system_error&) {
        work(JoinState::Refused);
    }
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "hook/posted/query_answer.h"

#include <optional>

#include "exchange/query_writer.h"
#include "hook/posted/caret_point.h"
#include "hook/posted/heap_block.h"
#include "hook/posted/selected_range.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::hook {
namespace {

constexpr DWORD kPathMax = 32768;
constexpr int kClassMax = 257;
constexpr DWORD kReturnMs = 1000;

WindowHandle Number(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

bool BelongsTo(HWND window, DWORD thread) {
    return window && GetWindowThreadProcessId(window, nullptr) == thread;
}

// One answer: given once, by the thread that was asked or, when that is held up, by a guard. The
// guard, if there is one, frees it.
class Answer {
  public:
    static Answer* Make(const HookSetup& setup) {
        auto* answer = MakeHeapBlock<Answer>(1).release();
        if (answer) {
            answer->setup_ = setup;
            answer->given_ = 0;
            answer->left_ = nullptr;
            answer->thread_ = nullptr;
        }
        return answer;
    }

    void Free() {
        CloseIfOpen(left_);
        CloseIfOpen(thread_);
        HeapFree(GetProcessHeap(), 0, this);
    }

    // All that the system knows without asking the window.
    void Describe(HWND target) {
        gui_ = {};
        gui_.cbSize = sizeof gui_;
        GetGUIThreadInfo(GetCurrentThreadId(), &gui_);
        asked_ = BelongsTo(gui_.hwndFocus, GetCurrentThreadId()) ? gui_.hwndFocus : target;
        if (!target) {
            target = asked_;
        }
        facts_ = {};
        facts_.AppPath = {FromWide(path_), GetModuleFileNameW(nullptr, path_, kPathMax)};
        facts_.WindowClassName = {
            FromWide(class_), static_cast<std::size_t>(GetClassNameW(target, class_, kClassMax))};
        facts_.Target = Number(target);
        facts_.GuiThreadInfo = {Number(gui_.hwndActive), Number(gui_.hwndFocus),
                                Number(gui_.hwndCapture), Number(gui_.hwndMenuOwner),
                                Number(gui_.hwndCaret)};
        facts_.Hkl =
            static_cast<LayoutHandle>(reinterpret_cast<std::uintptr_t>(GetKeyboardLayout(0)));
        facts_.StateSelText = kSelTextFailed;
        SetPoint(facts_, PointBelowCaret(gui_));
    }

    // Asks the window for the rest and gives the answer. With a guard, the event that tells it that
    // this thread has left; the answer is the guard's then.
    HANDLE Complete() {
        const ControlKind kind = asked_ ? KindOf(asked_) : ControlKind::Other;
        const bool asksPoint = asked_ && !HasPoint();
        const bool needsGuard =
            asksPoint || (kind != ControlKind::Other && !IsAnsweredBySystem(asked_));
        const bool hasGuard = needsGuard && StartGuard();
        SelectedRange selection;
        QueryFacts whole = facts_;
        if (asked_ && hasGuard == needsGuard) {
            selection = ReadSelection(asked_, kind);
            whole.SelText = selection.Text;
            whole.StateSelText = selection.State;
            if (asksPoint) {
                SetPoint(whole, PointBelowAccessibleCaret(asked_));
            }
        }
        GiveOnce(whole);
        return hasGuard ? left_ : nullptr;
    }

  private:
    static void SetPoint(QueryFacts& facts, const std::optional<POINT>& point) {
        if (point) {
            facts.PointX = point->x;
            facts.PointY = point->y;
        }
    }

    bool HasPoint() const { return facts_.PointX != -1 || facts_.PointY != -1; }

    // The guard runs this code, and so may the thread that was asked, within code of the window:
    // even when the program lets go of the library meanwhile.
    bool StartGuard() {
        left_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        thread_ =
            OpenThread(SYNCHRONIZE | THREAD_QUERY_LIMITED_INFORMATION, FALSE, GetCurrentThreadId());
        if (!left_ || !thread_ ||
            !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                reinterpret_cast<const wchar_t*>(&RunGuard), &module_)) {
            return false;
        }
        const UniqueHandle guard(CreateThread(nullptr, 0, RunGuard, this, 0, nullptr));
        if (!guard) {
            FreeLibrary(module_);
        }
        return guard != nullptr;
    }

    static DWORD WINAPI RunGuard(void* context) {
        auto* answer = static_cast<Answer*>(context);
        const HMODULE module = answer->module_;
        if (!answer->HasLeft(kAnswerMs)) {
            answer->GiveOnce(answer->facts_);
            answer->HasLeft(INFINITE);
        }
        answer->AwaitReturn();
        answer->Free();
        FreeLibraryAndExitThread(module, 0);
    }

    // A thread that has ended has left too.
    bool HasLeft(DWORD milliseconds) const {
        const HANDLE ends[] = {left_, thread_};
        return WaitForMultipleObjects(2, ends, FALSE, milliseconds) != WAIT_TIMEOUT;
    }

    // The thread says that it leaves while it is still here. A message is not answered before it
    // asks for one, outside; without a window a second must do for those few instructions.
    void AwaitReturn() const {
        DWORD_PTR ignored = 0;
        while (WaitForSingleObject(thread_, 0) == WAIT_TIMEOUT &&
               !SendMessageTimeoutW(asked_, WM_NULL, 0, 0, SMTO_NORMAL, kReturnMs, &ignored)) {
            if (!BelongsTo(asked_, GetThreadId(thread_))) {
                WaitForSingleObject(thread_, kReturnMs);
                return;
            }
        }
    }

    static void CloseIfOpen(HANDLE handle) {
        if (handle) {
            CloseHandle(handle);
        }
    }

    void GiveOnce(const QueryFacts& facts) {
        if (InterlockedExchange(&given_, 1) == 0) {
            Give(facts);
        }
    }

    void Give(const QueryFacts& facts) const {
        const UniqueHandle needed(
            OpenEventW(EVENT_MODIFY_STATE | SYNCHRONIZE, FALSE, setup_.DataNeeded));
        // While it is set, somebody reads.
        if (!needed || WaitForSingleObject(needed.get(), 0) != WAIT_TIMEOUT) {
            return;
        }
        const UniqueHandle area(OpenFileMappingW(FILE_MAP_WRITE, FALSE, setup_.InterchangeArea));
        const auto view = MapView<char>(area.get(), FILE_MAP_WRITE, kQueryDocumentMax);
        if (view && WriteQueryDocument(facts, view.get(), kQueryDocumentMax)) {
            SetEvent(needed.get());
        }
    }

    HookSetup setup_;
    GUITHREADINFO gui_;
    QueryFacts facts_;
    HWND asked_;
    HANDLE left_;    // set when the asked thread leaves the library
    HANDLE thread_;  // the asked one
    HMODULE module_;
    volatile LONG given_;
    wchar_t path_[kPathMax];
    wchar_t class_[kClassMax];
};

}  // namespace

HANDLE AnswerQuery(const MSG& message, const HookSetup& setup) {
    Answer* answer = GetTickCount() - message.time > kFreshMs ? nullptr : Answer::Make(setup);
    if (!answer) {
        return nullptr;
    }
    answer->Describe(message.hwnd);
    const HANDLE left = answer->Complete();
    if (!left) {
        answer->Free();
    }
    return left;
}

}  // namespace vbr::hook

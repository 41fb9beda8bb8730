// SPDX-License-Identifier: MIT
#include "hook/query_answer.h"

#include <optional>

#include "exchange/query_writer.h"
#include "hook/caret_point.h"
#include "hook/heap_block.h"
#include "hook/selected_range.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::hook {
namespace {

constexpr DWORD kPathMax = 32768;
constexpr int kClassMax = 257;

WindowHandle Number(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

bool BelongsToThisThread(HWND window) {
    return window && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

// One answer: given once, by the thread that was asked or, when that is held up, by a guard.
// It belongs to both; the last one frees it.
class Answer {
  public:
    static Answer* Make(const HookSetup& setup) {
        auto* answer = MakeHeapBlock<Answer>(1).release();
        if (answer) {
            answer->setup_ = setup;
            answer->users_ = 1;
            answer->given_ = 0;
            answer->finished_ = nullptr;
        }
        return answer;
    }

    void Release() {
        if (InterlockedDecrement(&users_) == 0) {
            if (finished_) {
                CloseHandle(finished_);
            }
            HeapFree(GetProcessHeap(), 0, this);
        }
    }

    // All that the system knows without asking the window.
    void Describe(HWND target) {
        thread_ = {};
        thread_.cbSize = sizeof thread_;
        GetGUIThreadInfo(GetCurrentThreadId(), &thread_);
        asked_ = BelongsToThisThread(thread_.hwndFocus) ? thread_.hwndFocus : target;
        if (!target) {
            target = asked_;
        }
        facts_ = {};
        facts_.AppPath = {FromWide(path_), GetModuleFileNameW(nullptr, path_, kPathMax)};
        facts_.WindowClassName = {
            FromWide(class_), static_cast<std::size_t>(GetClassNameW(target, class_, kClassMax))};
        facts_.Target = Number(target);
        facts_.GuiThreadInfo = {Number(thread_.hwndActive), Number(thread_.hwndFocus),
                                Number(thread_.hwndCapture), Number(thread_.hwndMenuOwner),
                                Number(thread_.hwndCaret)};
        facts_.Hkl =
            static_cast<LayoutHandle>(reinterpret_cast<std::uintptr_t>(GetKeyboardLayout(0)));
        facts_.StateSelText = kSelTextFailed;
        SetPoint(facts_, PointBelowCaret(thread_));
    }

    // Asks the window for the rest and gives the answer.
    void Complete() {
        SelectedRange selection;
        QueryFacts whole = facts_;
        if (asked_) {
            const ControlKind kind = KindOf(asked_);
            if (!HasPoint() || (kind != ControlKind::Other && !IsAnsweredBySystem(asked_))) {
                StartGuard();
            }
            selection = ReadSelection(asked_, kind);
            whole.SelText = selection.Text;
            whole.StateSelText = selection.State;
            if (!HasPoint()) {
                SetPoint(whole, PointBelowAccessibleCaret(asked_));
            }
        }
        GiveOnce(whole);
        if (finished_) {
            SetEvent(finished_);
        }
    }

  private:
    static void SetPoint(QueryFacts& facts, const std::optional<POINT>& point) {
        if (point) {
            facts.PointX = point->x;
            facts.PointY = point->y;
        }
    }

    bool HasPoint() const { return facts_.PointX != -1 || facts_.PointY != -1; }

    // Without a guard the answer waits for the window.
    void StartGuard() {
        finished_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        // The guard runs this code, even when the program lets go of the library meanwhile.
        if (!finished_ ||
            !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                reinterpret_cast<const wchar_t*>(&RunGuard), &module_)) {
            return;
        }
        InterlockedIncrement(&users_);
        const UniqueHandle guard(CreateThread(nullptr, 0, RunGuard, this, 0, nullptr));
        if (!guard) {
            InterlockedDecrement(&users_);
            FreeLibrary(module_);
        }
    }

    static DWORD WINAPI RunGuard(void* context) {
        auto* answer = static_cast<Answer*>(context);
        const HMODULE module = answer->module_;
        if (WaitForSingleObject(answer->finished_, kAnswerMs) == WAIT_TIMEOUT) {
            answer->GiveOnce(answer->facts_);
        }
        answer->Release();
        FreeLibraryAndExitThread(module, 0);
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
    GUITHREADINFO thread_;
    QueryFacts facts_;
    HWND asked_;
    HANDLE finished_;  // set when the asked thread is through
    HMODULE module_;
    volatile LONG users_;
    volatile LONG given_;
    wchar_t path_[kPathMax];
    wchar_t class_[kClassMax];
};

}  // namespace

void AnswerQuery(const MSG& message, const HookSetup& setup) {
    if (GetTickCount() - message.time > kFreshMs) {
        return;
    }
    if (Answer* answer = Answer::Make(setup)) {
        answer->Describe(message.hwnd);
        answer->Complete();
        answer->Release();
    }
}

}  // namespace vbr::hook

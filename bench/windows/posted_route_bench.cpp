// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>

#include "base/text.h"
#include "exchange/hook_service.h"
#include "exchange/win32/hook_module.h"
#include "exchange/win32/query_wait_thread.h"
#include "fakes/memory_log.h"
#include "platform/object_names.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_named_objects.h"
#include "ratio.h"
#include "windows/program_folder.h"
#include "windows/real_reader.h"
#include "windows/target_thread.h"

namespace vbr::bench {
namespace {

// A query crosses three threads and four kernel objects, a bare answer two and one.
constexpr double kBound = 5;
constexpr UINT kQueryReady = WM_APP + 3;
constexpr UINT kWaitError = WM_APP + 18;

struct QuietLog : MemoryLog {
    bool IsLogOn() const override { return false; }
    void Write(std::u16string_view) override {}
};

// What the program has for the posted route. This thread is its main thread.
class PostedQueries {
  public:
    PostedQueries()
        : notify_(CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                  nullptr)) {
        SetWindowLongPtrW(notify_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(notify_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Receive));
        hooks_.InstallDLLService({.TrayWindow = reinterpret_cast<WindowHandle>(notify_),
                                  .QueryMessage = message_,
                                  .Route = QueryRouteChoice::Posted});
        wait_.Start(*needed_, *completed_);
    }
    ~PostedQueries() {
        wait_.Stop();
        hooks_.UninstallDLLService();
        DestroyWindow(notify_);
    }

    bool IsInstalled() const { return hooks_.IsInstalled(); }

    const WPQuery& Query() const { return query_; }

    // Nanoseconds from the start of a query to the moment at which the menu would be built.
    double Ask(HWND target) {
        const auto start = std::chrono::steady_clock::now();
        got_ = false;
        WPQuery query;
        query.GuiThreadInfo = reader_.Windows.OwnGuiThread();
        benchmark::DoNotOptimize(library_.GetTargetWindow());
        route_.Start(reinterpret_cast<WindowHandle>(target), 0, query);
        while (!got_) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                DispatchMessageW(&message);
            }
        }
        return std::chrono::duration<double, std::nano>(ready_ - start).count();
    }

  private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != kQueryReady) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        auto& route = *reinterpret_cast<PostedQueries*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        route.ready_ = std::chrono::steady_clock::now();
        route.query_ = route.wait_.Find(wParam, lParam)->Query;
        route.got_ = true;
        return 1;
    }

    static std::u16string LibraryPath() {
        return (ProgramFolder() / "test_build" / "Vellumbridge.dll").u16string();
    }

    HWND notify_;
    UINT message_ = RegisterWindowMessageW(Wide(kMessageQuery.data()));
    QuietLog log_;
    WinNamedObjects objects_;
    std::unique_ptr<SharedBlock> area_ = objects_.Create(kAreaInterchange, kAreaInterchangeSize);
    std::unique_ptr<NamedEvent> needed_ =
        objects_.Create(kEventDataNeeded, EventReset::Manual, ObjectAccess::Default);
    std::unique_ptr<NamedEvent> completed_ =
        objects_.Create(kEventDataCompleted, EventReset::Manual, ObjectAccess::Default);
    std::unique_ptr<NamedEvent> stop_ =
        objects_.Create(u"", EventReset::Manual, ObjectAccess::Default);
    RealReader reader_{log_};
    PostedRoute route_{reader_.Windows, reader_.Selection, message_, log_};
    HookModule library_{LibraryPath()};
    CVBRDLLService hooks_{{.Library = library_,
                           .LibraryPath = u"",
                           .Objects = objects_,
                           .Windows = reader_.Windows,
                           .Route = route_,
                           .Log = log_}};
    QueryWaitThread wait_{{.NotifyWindow = notify_,
                           .QueryMessage = kQueryReady,
                           .ErrorMessage = kWaitError,
                           .Stop = *stop_,
                           .Memory = objects_,
                           .Selection = reader_.Selection,
                           .Log = log_}};
    WPQuery query_;
    std::chrono::steady_clock::time_point ready_;
    bool got_ = false;
};

constexpr wchar_t kBareAnswer[] = L"Local\\Vellumbridge_Bench_Answer";

UINT g_bareMessage;

// A hook in another program can know the event by its name only.
LRESULT CALLBACK AnswerBare(int code, WPARAM wParam, LPARAM lParam) {
    if (reinterpret_cast<const MSG*>(lParam)->message == g_bareMessage && wParam == PM_REMOVE) {
        const UniqueHandle answer(OpenEventW(EVENT_MODIFY_STATE, FALSE, kBareAnswer));
        SetEvent(answer.get());
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void PostedQuery(benchmark::State& state) {
    // The bare hook has a target of its own, so that it stands in nobody's way.
    const TargetThread bare(L"Edit", 0);
    const TargetThread target(L"Edit", 0);
    SendMessageW(target.Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"one two three"));
    SendMessageW(target.Window(), EM_SETSEL, 4, 7);
    PostedQueries route;
    if (route.IsInstalled()) {
        route.Ask(target.Window());
    }
    if (route.Query().SelText != u"two") {
        state.SkipWithError("the hook library does not answer");
        return;
    }
    const UniqueHandle answer(CreateEventW(nullptr, FALSE, FALSE, kBareAnswer));
    g_bareMessage = RegisterWindowMessageW(L"Vellumbridge_Bench_Bare");
    const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, AnswerBare, nullptr,
                                         GetWindowThreadProcessId(bare.Window(), nullptr));
    MeasureRatioOfTimes(
        state, kBound, [&] { return route.Ask(target.Window()); },
        [&] {
            return Time([&] {
                PostMessageW(bare.Window(), g_bareMessage, 0, 0);
                WaitForSingleObject(answer.get(), INFINITE);
            });
        });
    UnhookWindowsHookEx(hook);
}
// A few hundred pairs are over before the processor has changed its pace once.
BENCHMARK(PostedQuery)->Iterations(Rounds(3001))->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vbr::bench

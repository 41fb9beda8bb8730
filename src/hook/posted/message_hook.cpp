// SPDX-License-Identifier: MIT
#include "hook/posted/message_hook.h"

#include "hook/posted/query_answer.h"
#include "hook/posted_route.h"
#include "hook/system_manners.h"

namespace vbr::hook {
namespace {

// No message has this number.
constexpr UINT kNoMessage = 0xFFFF'FFFF;

constinit HookSetup g_setup = {kNoMessage, {}, {}};
constinit HMODULE g_module = nullptr;
constinit MessageHook g_messageHook;

// Runs for every message of every thread that has windows.
LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto* message = reinterpret_cast<MSG*>(lParam);
    if (code != HC_ACTION || message->message != g_setup.QueryMessage || wParam != PM_REMOVE) {
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    const HANDLE left = AnswerQuery(*message, g_setup);
    // It is done: the next in the chain may be the hook of another instance of the program.
    message->message = WM_NULL;
    const LRESULT result = CallNextHookEx(nullptr, code, wParam, lParam);
    // Nothing that is called follows.
    if (left) {
        SetEvent(left);
    }
    return result;
}

}  // namespace

bool MessageHook::Set(const HookSetup& setup) {
    UniqueHandle published = PublishSetup(setup);
    if (!published) {
        return false;
    }
    g_setup = setup;
    hook_ = SetWindowsHookExW(WH_GETMESSAGE, OnMessage, g_module, 0);
    if (hook_) {
        published_ = published.release();
    }
    return hook_ != nullptr;
}

bool MessageHook::Remove() {
    if (!UnhookWindowsHookEx(hook_)) {
        return false;
    }
    hook_ = nullptr;
    CloseHandle(published_);
    published_ = nullptr;
    g_setup.QueryMessage = kNoMessage;
    LetTargetsGo(g_module);
    return true;
}

void EnterProcess(HMODULE module) {
    g_module = module;
    ReadPublishedSetup(g_setup);
}

std::uint32_t StartPostedRoute(const WPInstallParams& params) {
    return g_messageHook.Set(MakeSetup(params)) ? kHookSuccess : kHookNotHooked;
}

bool StopPostedRoute() {
    return !g_messageHook.IsSet() || g_messageHook.Remove();
}

}  // namespace vbr::hook

// SPDX-License-Identifier: MIT
#include "history/win32/clipboard_spy_window.h"

#include "platform/object_names.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr UINT_PTR kCheckTimer = 101;
constexpr UINT kCheckMs = 1000;
constexpr UINT kChainPatienceMs = 1000;

enum Notice : WPARAM { kNoticeChange = 0, kNoticeState = 1 };

HWND WindowOf(WindowHandle handle) {
    return reinterpret_cast<HWND>(handle);
}

WindowHandle NumberOf(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

using ListenerCall = BOOL(WINAPI*)(HWND);

// Systems older than the listener lack the call.
ListenerCall FindListenerCall(const char* name) {
    return reinterpret_cast<ListenerCall>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

bool CallListener(const char* name, HWND window) {
    const ListenerCall call = FindListenerCall(name);
    return call && call(window);
}

// A viewer that hangs breaks the chain behind it, but not this program.
void SendToViewer(WindowHandle to, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(WindowOf(to), message, wParam, lParam, SMTO_ABORTIFHUNG, kChainPatienceMs,
                        &ignored);
}

}  // namespace

bool HasClipboardListener() {
    return FindListenerCall("AddClipboardFormatListener") != nullptr;
}

ClipboardSpyWindow::ClipboardSpyWindow(Log& log)
    : notice_(RegisterWindowMessageW(Wide(kMessageClipboardNotice.data()))), spy_(*this, log) {}

bool ClipboardSpyWindow::Install(bool useListener, HWND parent) {
    if (spy_.IsInstalled()) {
        return false;
    }
    // After a lost subscription the window is still there.
    Uninstall();
    useListener_ = useListener;
    WindowCreation creation;
    creation.ClassName = L"ClipboardSpyWndHidden";
    creation.ClassStyle = CS_HREDRAW | CS_VREDRAW;
    creation.ClassIcon = LoadIconW(nullptr, IDI_APPLICATION);
    creation.ClassBrush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    creation.Style = WS_CHILD;
    creation.X = creation.Y = -100;
    creation.Width = creation.Height = 10;
    creation.Parent = parent;
    return WindowBase::Create(creation) && spy_.IsInstalled();
}

void ClipboardSpyWindow::Uninstall() {
    if (Handle()) {
        DestroyWindow(Handle());
    }
}

std::optional<LRESULT> ClipboardSpyWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr MessageHandler<ClipboardSpyWindow> kMap[] = {
        {WM_CREATE, &ClipboardSpyWindow::OnCreate},
        {WM_DESTROY, &ClipboardSpyWindow::OnDestroy},
        {WM_TIMER, &ClipboardSpyWindow::OnTimer},
        {WM_CHANGECBCHAIN, &ClipboardSpyWindow::OnChangeChain},
        {WM_CLIPBOARDUPDATE, &ClipboardSpyWindow::OnUpdate},
    };
    if (message == notice_) {
        spy_.OnNotice(wParam == kNoticeChange, static_cast<WindowHandle>(lParam));
        return 1;
    }
    if (message == WM_DRAWCLIPBOARD) {
        spy_.OnDrawClipboard();
        return std::nullopt;
    }
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT ClipboardSpyWindow::OnCreate(WPARAM, LPARAM) {
    return spy_.InstallMethod(NumberOf(Handle()), useListener_) ? 0 : -1;
}

LRESULT ClipboardSpyWindow::OnDestroy(WPARAM, LPARAM) {
    spy_.UninstallMethod();
    return 0;
}

LRESULT ClipboardSpyWindow::OnTimer(WPARAM id, LPARAM) {
    if (id == kCheckTimer) {
        spy_.OnTimer();
    }
    return 0;
}

LRESULT ClipboardSpyWindow::OnChangeChain(WPARAM removed, LPARAM next) {
    spy_.OnChangeChain(static_cast<WindowHandle>(removed), static_cast<WindowHandle>(next));
    return 0;
}

LRESULT ClipboardSpyWindow::OnUpdate(WPARAM, LPARAM) {
    spy_.OnClipboardUpdate();
    return 0;
}

bool ClipboardSpyWindow::AddListener() {
    return CallListener("AddClipboardFormatListener", Handle());
}

void ClipboardSpyWindow::RemoveListener() {
    CallListener("RemoveClipboardFormatListener", Handle());
}

WindowHandle ClipboardSpyWindow::Viewer() const {
    return NumberOf(GetClipboardViewer());
}

std::optional<WindowHandle> ClipboardSpyWindow::SetViewer() {
    const DWORD before = GetLastError();
    SetLastError(ERROR_SUCCESS);
    const HWND next = SetClipboardViewer(Handle());
    if (!next && GetLastError() != ERROR_SUCCESS) {
        return std::nullopt;
    }
    SetLastError(before);
    return NumberOf(next);
}

void ClipboardSpyWindow::LeaveChain(WindowHandle next) {
    ChangeClipboardChain(Handle(), WindowOf(next));
}

void ClipboardSpyWindow::SendChainChange(WindowHandle to, WindowHandle removed, WindowHandle next) {
    SendToViewer(to, WM_CHANGECBCHAIN, removed, static_cast<LPARAM>(next));
}

void ClipboardSpyWindow::SendDraw(WindowHandle to) {
    SendToViewer(to, WM_DRAWCLIPBOARD, 0, 0);
}

void ClipboardSpyWindow::StartCheckTimer() {
    SetTimer(Handle(), kCheckTimer, kCheckMs, nullptr);
}

void ClipboardSpyWindow::StopCheckTimer() {
    KillTimer(Handle(), kCheckTimer);
}

void ClipboardSpyWindow::PostChange(WindowHandle owner) {
    PostMessageW(Handle(), notice_, kNoticeChange, static_cast<LPARAM>(owner));
}

void ClipboardSpyWindow::PostStateChange() {
    PostMessageW(Handle(), notice_, kNoticeState, 0);
}

std::uint32_t ClipboardSpyWindow::SequenceNumber() const {
    return GetClipboardSequenceNumber();
}

bool ClipboardSpyWindow::IsClipboardInUse() const {
    return !OpenClipboard(Handle()) || !CloseClipboard();
}

WindowHandle ClipboardSpyWindow::ClipboardOwner() const {
    return NumberOf(GetClipboardOwner());
}

WindowHandle ClipboardSpyWindow::ForegroundWindow() const {
    return NumberOf(GetForegroundWindow());
}

}  // namespace vbr

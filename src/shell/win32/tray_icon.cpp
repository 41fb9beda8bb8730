// SPDX-License-Identifier: MIT
#include "shell/win32/tray_icon.h"

#include <algorithm>
#include <system_error>

#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr int kInstallTries = 200;
constexpr std::uint32_t kInstallPauseMs = 2000;
constexpr int kBlinkRounds = 4;
constexpr std::uint32_t kBlinkPauseMs = 250;

template <std::size_t Size>
void CopyText(wchar_t (&field)[Size], std::u16string_view text) {
    const std::size_t length = std::min(text.size(), Size - 1);
    std::copy_n(text.begin(), length, field);
    field[length] = L'\0';
}

HICON SmallIcon(int id) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                         IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                         GetSystemMetrics(SM_CYSMICON), LR_SHARED));
}

NOTIFYICONDATAW DataFor(HWND window) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window;
    data.uID = kTrayIconId;
    return data;
}

void TryInstall(HWND window, NamedEvent& stop) {
    for (int i = 0; i < kInstallTries; ++i) {
        if (SendMessageW(window, kMsgInstallTrayIcon, 0, 0) != 0 ||
            stop.Wait(kInstallPauseMs) != WaitResult::TimedOut) {
            return;
        }
    }
}

// The pause after a change; true when the program ends meanwhile.
bool ChangeIcon(NOTIFYICONDATAW& data, HICON icon, NamedEvent& stop) {
    data.uFlags = NIF_ICON;
    data.hIcon = icon;
    Shell_NotifyIconW(NIM_MODIFY, &data);
    return stop.Wait(kBlinkPauseMs) != WaitResult::TimedOut;
}

void BlinkIcon(HWND window, HICON usual, NamedEvent& stop) {
    NOTIFYICONDATAW data = DataFor(window);
    for (int i = 0; i < kBlinkRounds; ++i) {
        if (ChangeIcon(data, SmallIcon(kIconTrayBlink), stop) || ChangeIcon(data, usual, stop)) {
            return;
        }
    }
}

// Runs the work on a thread unless the last such thread is still at it.
template <typename Work>
bool StartOnce(std::thread& thread, std::atomic<bool>& running, Work work) {
    if (running.exchange(true)) {
        return true;
    }
    if (thread.joinable()) {
        thread.join();
    }
    try {
        thread = std::thread([&running, work] {
            work();
            running = false;
        });
        return true;
    } catch (const std::system_error&) {
        running = false;
        return false;
    }
}

}  // namespace

TrayIcon::~TrayIcon() {
    for (std::thread* thread : {&install_, &blink_}) {
        if (thread->joinable()) {
            thread->join();
        }
    }
}

bool TrayIcon::Update(HWND window, TrayIconMode mode, const TrayIconContent& content) {
    data_.cbSize = sizeof data_;
    data_.hWnd = window;
    data_.uID = kTrayIconId;
    data_.uCallbackMessage = kMsgTrayNotify;
    data_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    data_.hIcon = SmallIcon(content.IconId);
    CopyText(data_.szTip, content.Tip);
    if (mode != TrayIconMode::Modify) {
        data_.uFlags |= NIF_INFO;
        data_.dwInfoFlags = content.Warning ? NIIF_WARNING : NIIF_USER;
        CopyText(data_.szInfo, content.Info);
        CopyText(data_.szInfoTitle, content.InfoTitle);
    }
    if (mode != TrayIconMode::Add) {
        return Notify(NIM_MODIFY, data_);
    }
    if (!Notify(NIM_ADD, data_)) {
        return false;
    }
    data_.uVersion = NOTIFYICON_VERSION;
    Notify(NIM_SETVERSION, data_);
    return true;
}

void TrayIcon::Delete(HWND window) {
    NOTIFYICONDATAW data = DataFor(window);
    Notify(NIM_DELETE, data);
}

bool TrayIcon::ShowBalloon(HWND window, std::u16string_view text, bool silent,
                           std::uint32_t timeoutMs) {
    NOTIFYICONDATAW data = DataFor(window);
    CopyText(data.szInfo, text);
    data.dwInfoFlags = NIIF_INFO | (silent ? DWORD{NIIF_NOSOUND} : 0);
    data.uFlags = NIF_TIP | NIF_INFO;
    data.uTimeout = timeoutMs;
    // The tip goes along with the balloon's flags: it must not become empty.
    CopyText(data.szTip, FromWide(data_.szTip));
    const bool shown = Notify(NIM_MODIFY, data);
    if (text.empty()) {
        data.uFlags = NIF_TIP;
        CopyText(data.szTip, FromWide(data_.szInfo));
        Notify(NIM_MODIFY, data);
    }
    return shown;
}

void TrayIcon::StartInstallThread(HWND window, NamedEvent& stop) {
    if (!StartOnce(install_, installing_, [window, &stop] { TryInstall(window, stop); })) {
        SendMessageW(window, kMsgInstallTrayIcon, 0, 0);
    }
}

void TrayIcon::Blink(HWND window, NamedEvent& stop) {
    StartOnce(blink_, blinking_,
              [window, &stop, usual = data_.hIcon] { BlinkIcon(window, usual, stop); });
}

bool TrayIcon::Notify(DWORD message, NOTIFYICONDATAW& data) {
    return guard_.RunWithBox(kFaultShellNotify, false,
                             [&] { return Shell_NotifyIconW(message, &data) != 0; });
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/win32/tray_icon.h"

#include <algorithm>
#include <system_error>

#include "platform/win32/wide.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr int kInstallTries = 200;
constexpr std::uint32_t kInstallPauseMs = 2000;

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

void TryInstall(HWND window, NamedEvent& stop) {
    for (int i = 0; i < kInstallTries; ++i) {
        if (SendMessageW(window, kMsgInstallTrayIcon, 0, 0) != 0 ||
            stop.Wait(kInstallPauseMs) != WaitResult::TimedOut) {
            return;
        }
    }
}

}  // namespace

TrayIcon::~TrayIcon() {
    if (install_.joinable()) {
        install_.join();
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
        return Shell_NotifyIconW(NIM_MODIFY, &data_) != 0;
    }
    if (!Shell_NotifyIconW(NIM_ADD, &data_)) {
        return false;
    }
    data_.uVersion = NOTIFYICON_VERSION;
    Shell_NotifyIconW(NIM_SETVERSION, &data_);
    return true;
}

void TrayIcon::Delete(HWND window) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window;
    data.uID = kTrayIconId;
    Shell_NotifyIconW(NIM_DELETE, &data);
}

void TrayIcon::StartInstallThread(HWND window, NamedEvent& stop) {
    if (installing_.exchange(true)) {
        return;
    }
    if (install_.joinable()) {
        install_.join();
    }
    try {
        install_ = std::thread([this, window, &stop] {
            TryInstall(window, stop);
            installing_ = false;
        });
    } catch (const std::system_error&) {
        installing_ = false;
        SendMessageW(window, kMsgInstallTrayIcon, 0, 0);
    }
}

}  // namespace vbr

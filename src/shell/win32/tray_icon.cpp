// SPDX-License-Identifier: MIT
#include "shell/win32/tray_icon.h"

#include <algorithm>

#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

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

}  // namespace

bool TrayIcon::Update(HWND window, TrayIconMode mode, const TrayIconContent& content) {
    data_.cbSize = sizeof data_;
    data_.hWnd = window;
    data_.uID = kTrayIconId;
    data_.uCallbackMessage = kMsgTrayNotify;
    data_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    data_.hIcon = SmallIcon(content.IconId);
    CopyText(data_.szTip, content.Tip);
    // Also without a balloon: when one is taken away, it becomes the tip.
    CopyText(data_.szInfo, content.Info);
    if (mode != TrayIconMode::Modify) {
        data_.uFlags |= NIF_INFO;
        data_.dwInfoFlags = (content.Warning ? NIIF_WARNING : NIIF_USER) | NIIF_NOSOUND;
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

bool TrayIcon::ShowBalloon(HWND window, std::u16string_view text, std::uint32_t timeoutMs) {
    NOTIFYICONDATAW data = DataFor(window);
    CopyText(data.szInfo, text);
    data.dwInfoFlags = NIIF_INFO | NIIF_NOSOUND;
    data.uFlags = NIF_TIP | NIF_INFO;
    data.uTimeout = timeoutMs;
    // The tip goes along with the balloon's flags: it must not become empty.
    CopyText(data.szTip, FromWide(data_.szTip));
    const bool shown = Notify(NIM_MODIFY, data);
    if (text.empty()) {
        data.uFlags = NIF_TIP;
        CopyText(data.szTip, CutToTip(FromWide(data_.szInfo)));
        Notify(NIM_MODIFY, data);
    }
    return shown;
}

void TrayIcon::ShowBlinkImage(HWND window, bool second) {
    NOTIFYICONDATAW data = DataFor(window);
    data.uFlags = NIF_ICON;
    data.hIcon = second ? SmallIcon(kIconTrayBlink) : data_.hIcon;
    Notify(NIM_MODIFY, data);
}

bool TrayIcon::Notify(DWORD message, NOTIFYICONDATAW& data) {
    return guard_.RunWithBox(kFaultShellNotify, false,
                             [&] { return Shell_NotifyIconW(message, &data) != 0; });
}

}  // namespace vbr

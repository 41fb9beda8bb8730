// SPDX-License-Identifier: MIT
#include "history/clipboard_spy.h"

namespace vbr {

std::optional<SpyMethod> SpyMethodOfSetting(std::int32_t setting, bool hasListener) {
    switch (static_cast<SpyMethod>(setting)) {
        case SpyMethod::None:
            return hasListener ? SpyMethod::CSMO_ADDCLIPBOARDLISTENER
                               : SpyMethod::CSMO_SETCLIPBOARDVIEWER;
        case SpyMethod::CSMO_SETCLIPBOARDVIEWER:
        case SpyMethod::CSMO_ADDCLIPBOARDLISTENER:
            return static_cast<SpyMethod>(setting);
    }
    return std::nullopt;
}

bool HWNDClipboardSpy::InstallMethod(WindowHandle window, bool preferListener) {
    window_ = window;
    preferListener_ = preferListener;
    method_ = SpyMethod::None;
    if (preferListener && desktop_.AddListener()) {
        method_ = SpyMethod::CSMO_ADDCLIPBOARDLISTENER;
    } else if (ViewerInstall()) {
        method_ = SpyMethod::CSMO_SETCLIPBOARDVIEWER;
    } else {
        return false;
    }
    log_.Write(u"ReInstall entity for HWNDClipboardSpy IS IMPLEMENTED");
    log_.Write(method_ == SpyMethod::CSMO_SETCLIPBOARDVIEWER
                   ? u"Well, start ReInstall entity for HWNDClipboardSpy"
                   : u"N-o-o-o-, ReInstall entity IS NOT NEED, use newest method CSPM_VISTA");
    desktop_.StartCheckTimer();
    return true;
}

bool HWNDClipboardSpy::ViewerInstall() {
    const WindowHandle previous = desktop_.Viewer();
    const std::optional<WindowHandle> next = desktop_.SetViewer();
    nextViewer_ = next.value_or(0);
    if (next && previous != 0) {
        desktop_.SendChainChange(previous, 0, window_);
    }
    return next.has_value();
}

void HWNDClipboardSpy::UninstallMethod() {
    if (method_ == SpyMethod::CSMO_SETCLIPBOARDVIEWER) {
        desktop_.LeaveChain(nextViewer_);
        nextViewer_ = 0;
    } else if (method_ == SpyMethod::CSMO_ADDCLIPBOARDLISTENER) {
        desktop_.RemoveListener();
    }
    method_ = SpyMethod::None;
    desktop_.StopCheckTimer();
}

template <typename Forward>
void HWNDClipboardSpy::ToNextViewer(const Forward& forward) {
    if (nextViewer_ == window_) {
        nextViewer_ = 0;
    }
    if (nextViewer_ != 0) {
        forwarding_ = true;
        forward(nextViewer_);
        forwarding_ = false;
    }
}

void HWNDClipboardSpy::OnDrawClipboard() {
    // Becoming a viewer anew brings one of these at once, which is no change. One that comes back
    // while it is sent on has gone round: another viewer holds this window for its next.
    if (reinstalling_ || forwarding_) {
        return;
    }
    desktop_.PostChange(desktop_.ClipboardOwner());
    ToNextViewer([this](WindowHandle next) { desktop_.SendDraw(next); });
}

void HWNDClipboardSpy::OnChangeChain(WindowHandle removed, WindowHandle next) {
    if (removed == nextViewer_) {
        nextViewer_ = next;
    } else if (!forwarding_) {
        ToNextViewer([&](WindowHandle to) { desktop_.SendChainChange(to, removed, next); });
    }
}

void HWNDClipboardSpy::OnTimer() {
    const std::uint32_t number = desktop_.SequenceNumber();
    // The number grows with each part of a change, but the change is told when it is whole.
    if (number == lastSequenceNumber_ || desktop_.IsClipboardInUse()) {
        return;
    }
    lastSequenceNumber_ = number;
    if (!IsInstalled()) {
        log_.Write(u"ERRROR: REINSTALL: IsInstalled=0");
        return;
    }
    reinstalling_ = true;
    UninstallMethod();
    InstallMethod(window_, preferListener_);
    if (!IsInstalled()) {
        log_.Write(u"REINSTALL: InstalledNew=0");
        desktop_.PostStateChange();
    } else {
        // What is on the clipboard now was told to nobody, whenever it came.
        desktop_.PostChange(desktop_.ClipboardOwner());
    }
    reinstalling_ = false;
}

void HWNDClipboardSpy::OnNotice(bool isChange, WindowHandle owner) {
    if (observers_.empty()) {
        log_.LogError(u"Clipboard Observers is empty");
        return;
    }
    if (isChange) {
        lastSequenceNumber_ = desktop_.SequenceNumber();
    }
    if (owner == 0) {
        owner = desktop_.ForegroundWindow();
    }
    for (const auto& [observer, userValue] : observers_) {
        if (isChange) {
            observer->OnClipboardChanged(owner, userValue);
        } else {
            observer->_OnClipboardSpyStateChanged(userValue);
        }
    }
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "history/clipboard_spy.h"
#include "platform/log.h"
#include "platform/win32/window_base.h"

namespace vbr {

// Whether the system tells listeners of clipboard changes.
bool HasClipboardListener();

// The hidden window that is told of clipboard changes. It goes with its parent.
class ClipboardSpyWindow : public WindowBase, private SpyDesktop {
  public:
    explicit ClipboardSpyWindow(Log& log);

    HWNDClipboardSpy& Spy() { return spy_; }

    // False when it is installed already, or can't be; the last error tells why.
    bool Install(bool useListener, HWND parent);
    void Uninstall();

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnChangeChain(WPARAM removed, LPARAM next);
    LRESULT OnUpdate(WPARAM, LPARAM);

    bool AddListener() override;
    void RemoveListener() override;
    WindowHandle Viewer() const override;
    std::optional<WindowHandle> SetViewer() override;
    void LeaveChain(WindowHandle next) override;
    void SendChainChange(WindowHandle to, WindowHandle removed, WindowHandle next) override;
    void SendDraw(WindowHandle to) override;
    void StartCheckTimer() override;
    void StopCheckTimer() override;
    void PostChange(WindowHandle owner) override;
    void PostStateChange() override;
    std::uint32_t SequenceNumber() const override;
    bool IsClipboardInUse() const override;
    WindowHandle ClipboardOwner() const override;
    WindowHandle ForegroundWindow() const override;

    UINT notice_;
    bool useListener_ = true;
    HWNDClipboardSpy spy_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// How the spy learns of changes; the setting stores these numbers.
enum class SpyMethod : std::int32_t {
    None = -1,  // not installed; in the setting: automatic
    CSMO_SETCLIPBOARDVIEWER = 0,
    CSMO_ADDCLIPBOARDLISTENER = 1,
};

// The method that the setting asks for, or nothing when it names none.
std::optional<SpyMethod> SpyMethodOfSetting(std::int32_t setting, bool hasListener);

// What the spy asks of the desktop, on behalf of its window.
class SpyDesktop {
  public:
    virtual ~SpyDesktop() = default;

    virtual bool AddListener() = 0;  // false where the system has none
    virtual void RemoveListener() = 0;

    virtual WindowHandle Viewer() const = 0;  // the first of the chain
    // Becomes the first of the chain: the one that was, maybe 0; nothing when that fails.
    virtual std::optional<WindowHandle> SetViewer() = 0;
    virtual void LeaveChain(WindowHandle next) = 0;
    // WM_CHANGECBCHAIN and WM_DRAWCLIPBOARD, which wait for the window.
    virtual void SendChainChange(WindowHandle to, WindowHandle removed, WindowHandle next) = 0;
    virtual void SendDraw(WindowHandle to) = 0;

    virtual void StartCheckTimer() = 0;  // OnTimer, every second
    virtual void StopCheckTimer() = 0;
    // OnNotice follows, from the message queue.
    virtual void PostChange(WindowHandle owner) = 0;
    virtual void PostStateChange() = 0;

    virtual std::uint32_t SequenceNumber() const = 0;
    // Whether another program is at the clipboard right now.
    virtual bool IsClipboardInUse() const = 0;
    virtual WindowHandle ClipboardOwner() const = 0;
    virtual WindowHandle ForegroundWindow() const = 0;
};

class ClipboardObserver {
  public:
    virtual ~ClipboardObserver() = default;

    virtual void OnClipboardChanged(WindowHandle& owner, std::uint32_t userValue) = 0;
    virtual void _OnClipboardSpyStateChanged(std::uint32_t userValue) = 0;
};

// Learns that the clipboard changed and tells its observers. Once a second it looks whether a
// change went by unnoticed; then it subscribes anew and tells of it. Belongs to the main thread.
class HWNDClipboardSpy {
  public:
    HWNDClipboardSpy(SpyDesktop& desktop, Log& log)
        : desktop_(desktop), log_(log), lastSequenceNumber_(desktop.SequenceNumber()) {}

    bool IsInstalled() const { return method_ != SpyMethod::None; }
    SpyMethod Method() const { return method_; }

    void AddObserver(ClipboardObserver& observer, std::uint32_t userValue) {
        observers_[&observer] = userValue;
    }
    void ClearObservers() { observers_.clear(); }

    // Subscribes `window` by the listener, where it is preferred and there is one, else as a
    // viewer. False when neither works.
    bool InstallMethod(WindowHandle window, bool preferListener);
    void UninstallMethod();

    // The window's messages.
    void OnDrawClipboard();
    void OnChangeChain(WindowHandle removed, WindowHandle next);
    void OnClipboardUpdate() { desktop_.PostChange(desktop_.ClipboardOwner()); }
    void OnTimer();
    // What was posted comes back here; `isChange` is false for a change of the spy's state.
    void OnNotice(bool isChange, WindowHandle owner);

  private:
    bool ViewerInstall();
    // Calls `forward` with the next viewer, unless the chain leads back to this one.
    template <typename Forward>
    void ToNextViewer(const Forward& forward);

    SpyDesktop& desktop_;
    Log& log_;
    std::uint32_t lastSequenceNumber_;
    bool reinstalling_ = false;
    bool forwarding_ = false;
    WindowHandle window_ = 0;
    WindowHandle nextViewer_ = 0;
    bool preferListener_ = true;
    std::map<ClipboardObserver*, std::uint32_t> observers_;
    SpyMethod method_ = SpyMethod::None;
};

}  // namespace vbr

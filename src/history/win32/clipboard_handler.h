// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "history/change_capture.h"
#include "history/clipboard_capture.h"
#include "history/history_folder.h"
#include "history/history_messages.h"
#include "history/history_queue.h"
#include "history/history_saver.h"
#include "history/history_worker.h"
#include "history/win32/clipboard_spy_window.h"
#include "platform/ansi_text.h"
#include "platform/bitmaps.h"
#include "platform/clipboard_access.h"
#include "platform/clock.h"
#include "platform/fault_catcher.h"
#include "platform/file_store.h"
#include "platform/log.h"
#include "platform/my_copy.h"
#include "platform/named_objects.h"
#include "platform/program_windows.h"
#include "platform/stamped_files.h"
#include "platform/win32/window_base.h"
#include "settings/settings.h"

namespace vbr {

// The notice that the parent gets as WM_NOTIFY.
struct HistoryNotice {
    NMHDR Header;
    std::uint32_t Parameter;
};

// How the spy was asked to track, for display.
enum class TrackingState { NotTried = 0, Listener = 2, Viewer = 3 };

// Makes history items of clipboard changes, for as long as its window lives. The queue lives as
// long as the object. Belongs to the main thread; what it needs for its threads must outlive it.
class CVBRWndClipboardHandler : public WindowBase, private ClipboardObserver {
  public:
    struct Collaborators {
        const CVBRSettings& Settings;
        std::filesystem::path Folder;
        const vbr::Clock& Clock;
        const AnsiText& Ansi;
        vbr::Bitmaps& Bitmaps;
        const ProgramWindows& Windows;
        FileStore& Store;
        StampedFiles& Files;
        ClipboardAccess& Access;
        FaultCatcher& Faults;
        MyCopyGuard& MyCopy;
        NamedEvent& ProgramEnd;           // set when the program ends
        std::function<void()> SaveEnded;  // on another thread: Saving has changed
        vbr::Log& Log;
    };

    explicit CVBRWndClipboardHandler(Collaborators with);
    ~CVBRWndClipboardHandler() override;

    // Both succeed at once when that is so already. A failure is logged.
    bool Create(HWND parent, UINT controlId, bool captureOnCreate);
    bool Destroy();
    bool IsKeeping() const { return Handle() != nullptr; }
    std::uint32_t LastError() const { return lastError_; }
    TrackingState Tracking() const { return trackingState_; }

    CCHQueue& Queue() { return queue_; }
    std::size_t GetCount() const { return queue_.GetCount(); }
    const CCHItem* GetItem(std::size_t index) const { return queue_.GetItem(index); }
    bool IsEmpty() const { return queue_.GetCount() == 0; }

    // Saves what is unsaved, also while nothing is captured.
    void Save() { saver_.Save(); }
    SaveState Saving() const { return saver_.State(); }
    // Saves within two seconds, once for several calls.
    void RequestSave();
    // Captures a change that was made and not yet told. The user's own copy would be overtaken by
    // what the program does at the clipboard next.
    void CaptureNow();
    // The end of the program: begins a last save if one is needed, and tells whether it was. It may
    // send messages to the caller's thread while it is Busy.
    bool SaveRest() { return saver_.SaveRest(); }
    SerialWorker::BusyFlag Busy() const { return worker_.Busy(); }
    // The same for a thread that hangs, and from another one; complete when it returns.
    void SaveForHangingThread() { saver_.SaveForHangingThread(); }
    // Tells the parent of a change by a command.
    void NotifyChanged() { Notify(kNoticeHistoryChanged, HistoryChange::ByCommand); }

    // Called with the new state when the spy has lost its subscription.
    void OnSpyStateChanged(std::function<void(bool keeping)> call) {
        onSpyState_ = std::move(call);
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnSaveHistory(WPARAM, LPARAM);
    LRESULT OnDelayUnlock(WPARAM, LPARAM);
    LRESULT OnLoaded(LPARAM queue);
    LRESULT OnSaved(LPARAM item);
    LRESULT OnAddItem(LPARAM item);
    LRESULT OnItemStored(LPARAM item);

    void OnClipboardChanged(WindowHandle& owner, std::uint32_t userValue) override;
    void _OnClipboardSpyStateChanged(std::uint32_t userValue) override;

    bool InstallSpy();
    void Add(std::unique_ptr<CCHItem> item, HistoryChange change);
    void OnAdded(HistoryChange change);
    bool TellLoaded(CCHQueue& queue);
    LRESULT SendFromWorker(HWND window, UINT message, const void* sent);
    void Notify(std::uint32_t code, HistoryChange change);
    const CCHItem* ItemAt(LPARAM address);

    Collaborators with_;
    UINT loaded_;
    UINT saved_;
    UINT addItem_;
    UINT itemStored_;

    HistoryFolder folder_;
    CCHQueue queue_;
    ClipboardSpyWindow spy_;
    ClipboardCapture capture_;
    ChangeCapture changes_;

    TrackingState trackingState_ = TrackingState::NotTried;
    std::uint32_t lastError_ = 0;
    UINT controlId_ = 0;
    bool captureOnCreate_ = false;
    std::function<void(bool)> onSpyState_;
    // What a thread of ours is sending; no other address in such a message is believed.
    std::atomic<const void*> sentByWorker_ = nullptr;
    // The window that a save reports to; null while there is none.
    std::atomic<HWND> reportTo_ = nullptr;
    HistorySaver saver_;
    HistoryWorker worker_;
};

}  // namespace vbr

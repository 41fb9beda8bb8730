// SPDX-License-Identifier: MIT
#pragma once

#include "history/history_notices.h"
#include "history/win32/clipboard_handler.h"
#include "platform/my_copy.h"
#include "platform/task_threads.h"
#include "platform/win32/event_watcher.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_program_windows.h"
#include "platform/win32/win_stamped_files.h"
#include "settings/settings.h"
#include "shell/rooms.h"

namespace vbr {

// The clipboard history as the tray window has it. It outlives that window; its end waits for the
// threads that save. Belongs to the main thread.
class HistoryKeeper : public HistoryRoom {
  public:
    // `programEnd` is set before this object goes.
    HistoryKeeper(const CVBRSettings& settings, const std::u16string& programFolder,
                  NamedEvent& programEnd, Log& log);

    bool IsSpyRunning() const override { return handler_.IsKeeping(); }
    bool StartSpy() override;
    bool StopSpy() override { return handler_.Destroy(); }
    void StartSpyWithRetry() override;
    std::size_t ItemCount() const override { return handler_.GetCount(); }
    CCHQueue& Queue() override { return handler_.Queue(); }
    std::uintptr_t Handler() const override;
    HistoryReaction OnNotify(std::uint32_t code, std::uint32_t parameter) override;
    void Clear() override;
    void Save() override { handler_.Save(); }
    void OnLanguageChanged() override { handler_.Queue().ClearTips(); }
    void BeginOwnCopy() override { myCopy_.Add(); }
    void EndOwnCopy() override { myCopy_.Subtract(); }
    void BlockForAWhile() override { myCopy_.AsynBlockClipboardHandler(); }
    void OnSpyStateChanged(std::function<void(bool)> call) override {
        handler_.OnSpyStateChanged(std::move(call));
    }

  private:
    void WatchCopyEvents();

    const CVBRSettings& settings_;
    NamedEvent& programEnd_;
    Log& log_;
    WinFaultCatcher faults_;
    WinClock clock_;
    WinAnsiText ansi_;
    WinBitmaps bitmaps_;
    WinProgramWindows windows_;
    WinFileStore store_;
    WinStampedFiles files_;
    WinClipboardAccess clipboard_{nullptr};  // for reading only
    MyCopyGuard myCopy_;
    HistoryNotices notices_;
    CVBRWndClipboardHandler handler_;
    TaskThreads retries_;
    std::unique_ptr<EventWatcher> startCopy_;
    std::unique_ptr<EventWatcher> endCopy_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "shell/win32/history_keeper.h"

#include "platform/win32/windows.h"

#include "platform/object_names.h"
#include "shell/tray_messages.h"
#include "shell/win32/app_objects.h"

namespace vbr {
namespace {

constexpr std::u16string_view kFolderName = u"ClipboardHistory";
constexpr std::uint32_t kRetryMs = 2000;
constexpr int kRetries = 200;

}  // namespace

HistoryKeeper::HistoryKeeper(const CVBRSettings& settings, const std::u16string& programFolder,
                             NamedEvent& programEnd, Log& log)
    : settings_(settings),
      programEnd_(programEnd),
      log_(log),
      myCopy_(clock_, log),
      notices_(log),
      handler_({.Settings = settings,
                .Folder = programFolder + std::u16string(kFolderName),
                .Clock = clock_,
                .Ansi = ansi_,
                .Bitmaps = bitmaps_,
                .Windows = windows_,
                .Store = store_,
                .Files = files_,
                .Access = clipboard_,
                .Faults = faults_,
                .MyCopy = myCopy_,
                .ProgramEnd = programEnd,
                .Log = log}) {}

bool HistoryKeeper::StartSpy() {
    WatchCopyEvents();
    return handler_.Create(CAppObjects::TrayWindow(), kHistoryControlId, true);
}

void HistoryKeeper::WatchCopyEvents() {
    if (startCopy_) {
        return;
    }
    const auto watch = [this](std::u16string_view name, std::int32_t count) {
        auto watcher = std::make_unique<EventWatcher>();
        const auto start = [&](ObjectAccess access) {
            return watcher->Start(name, EventReset::Automatic, access, programEnd_,
                                  [this, count] { myCopy_.Set(count); });
        };
        if (!start(ObjectAccess::World) && !start(ObjectAccess::Default)) {
            log_.LogError(Concat(u"Cannot watch the event ", name));
        }
        return watcher;
    };
    startCopy_ = watch(kEventStartCopy, 1);
    endCopy_ = watch(kEventEndCopy, 0);
}

void HistoryKeeper::StartSpyWithRetry() {
    if (!settings_.ClipboardHistory || IsSpyRunning() || StartSpy()) {
        return;
    }
    retries_.Start([this, window = CAppObjects::TrayWindow()] {
        log_.Write(u"Start Delayed ClipboardHistory");
        LRESULT started = 0;
        for (int i = 1;
             i <= kRetries && started == 0 && programEnd_.Wait(kRetryMs) == WaitResult::TimedOut;
             ++i) {
            started = SendMessageW(window, kMsgInstallSpy, 0, 0);
            log_.Write(Concat(u"Try to delyaed install clipboard spy: success ",
                              static_cast<int>(started), u", try#", i));
        }
    });
}

void HistoryKeeper::Clear() {
    handler_.Queue().Clear();
    handler_.NotifyChanged();
}

std::uintptr_t HistoryKeeper::Handler() const {
    return reinterpret_cast<std::uintptr_t>(&handler_);
}

HistoryReaction HistoryKeeper::OnNotify(std::uint32_t code, std::uint32_t parameter) {
    return notices_.OnNotice(code, parameter, GetClipboardSequenceNumber(), handler_.GetCount());
}

}  // namespace vbr

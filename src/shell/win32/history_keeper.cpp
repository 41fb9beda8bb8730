// SPDX-License-Identifier: MIT
#include "shell/win32/history_keeper.h"

#include "platform/win32/windows.h"

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
      handler_({settings, programFolder + std::u16string(kFolderName), faults_, myCopy_, programEnd,
                log}) {}

bool HistoryKeeper::StartSpy() {
    return handler_.Create(CAppObjects::TrayWindow(), kHistoryControlId, true);
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

// SPDX-License-Identifier: MIT
#include "history/change_capture.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kLookMs = 30;
constexpr std::uint32_t kInUseMs = 1000;

// An owner that is busy is asked for a moment only, after pauses that double.
constexpr std::uint32_t kAskAgainMs = 20;
constexpr std::uint32_t kHangMs = 10'000;
constexpr std::uint32_t kLongestPauseMs = 2000;
constexpr int kMostDoublings = 8;

}  // namespace

void ChangeCapture::OnChange(WindowHandle owner, HistoryChange change) {
    // A program that hung is not asked for long again because of its next change.
    const int hangs = pending_ && pending_->Owner == owner ? pending_->Hangs : 0;
    pending_ = {owner, change, with_.Clock.TickCount(), hangs};
    Look();
}

void ChangeCapture::OnTimer() {
    if (pending_) {
        Look();
    }
}

void ChangeCapture::CaptureNow(WindowHandle owner) {
    if (pending_) {
        Look();
    } else if (judged_ != with_.Access.SequenceNumber()) {
        OnChange(owner, HistoryChange::Captured);
    }
}

void ChangeCapture::SkipContent() {
    judged_ = with_.Access.SequenceNumber();
    pending_.reset();
}

void ChangeCapture::Look() {
    if (judged_ == with_.Access.SequenceNumber()) {
        // Told twice, or part by part.
        pending_.reset();
        return;
    }
    CaptureResult result =
        with_.Capture.Capture(pending_->Owner, pending_->Hangs == 0 ? kOwnerAnswerMs : kAskAgainMs);
    if (const auto pause = NextLook(result.Outcome)) {
        with_.StartTimer(*pause);
        return;
    }
    judged_ = result.Number;
    const HistoryChange change = pending_->What;
    pending_.reset();
    if (result.Item) {
        with_.OnItem(std::move(result.Item), change);
    }
}

std::optional<std::uint32_t> ChangeCapture::NextLook(CaptureOutcome outcome) {
    const std::uint32_t elapsed = with_.Clock.TickCount() - pending_->Since;
    switch (outcome) {
        case CaptureOutcome::InUse:
        case CaptureOutcome::OwnUnderWay:
            if (elapsed < kInUseMs) {
                return kLookMs;
            }
            with_.Log.LogError(outcome == CaptureOutcome::InUse
                                   ? u"Clipboard not captured: another program holds it"
                                   : u"My copy process detected");
            return std::nullopt;
        case CaptureOutcome::OwnerHangs:
            if (elapsed < kHangMs) {
                return std::min(kLookMs << std::min(++pending_->Hangs, kMostDoublings),
                                kLongestPauseMs);
            }
            with_.Log.LogError(u"Clipboard not captured: its owner doesn't answer");
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

}  // namespace vbr

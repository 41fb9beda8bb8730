// SPDX-License-Identifier: MIT
#include "platform/my_copy.h"

namespace vbr {
namespace {

constexpr std::uint64_t kBlocked = std::uint64_t{1} << 32;

// Tick counts wrap, their differences do not.
std::uint32_t TicksBetween(std::uint32_t start, std::uint32_t end) {
    return end - start;
}

std::uint32_t StartOf(std::uint64_t block) {
    return static_cast<std::uint32_t>(block);
}

}  // namespace

bool MyCopyGuard::IsMyCopy() const {
    if (count_ != 0) {
        return true;
    }
    // Read before the clock, which so is never behind the block's start.
    std::uint64_t block = block_;
    if (block == 0) {
        return false;
    }
    if (TicksBetween(StartOf(block), clock_.TickCount()) < kBlockMs) {
        return true;
    }
    // Else it would hold again once the tick count has come round.
    block_.compare_exchange_strong(block, 0);
    return false;
}

void MyCopyGuard::Set(std::int32_t count) {
    block_ = 0;
    count_ = count;
}

void MyCopyGuard::AsynBlockClipboardHandler() {
    const std::uint32_t now = clock_.TickCount();
    std::uint64_t held = block_;
    const auto isLater = [&held, now] {
        return held != 0 && TicksBetween(now, StartOf(held)) < kBlockMs;
    };
    while (!isLater() && !block_.compare_exchange_weak(held, kBlocked | now)) {
    }
    log_.Write(Concat(u"AsynBlockClipboardHandler: ", kBlockMs, u" ms"));
}

void MyCopyGuard::EndBlock() {
    const bool isMyCopy = IsMyCopy();
    log_.Write(Concat(u"WM_DELAY_UNLOCK received bIsMyCopy=", int{isMyCopy}));
    if (block_.exchange(0) != 0) {
        return;
    }
    std::int32_t count = count_;
    while (count != 0 && !count_.compare_exchange_weak(count, count - 1)) {
    }
    if (count != 0) {
        Note(count - 1);
    }
}

void MyCopyGuard::Note(std::int32_t count) {
    const std::u16string line = Concat(u"PULSEMY_COPY=", count);
    if (count < 0) {
        log_.LogError(line);
    } else {
        log_.Write(line);
    }
}

}  // namespace vbr

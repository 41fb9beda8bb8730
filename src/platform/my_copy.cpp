// SPDX-License-Identifier: MIT
#include "platform/my_copy.h"

namespace vbr {
namespace {

constexpr std::uint64_t kNoted = std::uint64_t{1} << 32;

}  // namespace

bool MyCopyGuard::IsOwnContent() const {
    const std::uint64_t number = kNoted | clipboard_.SequenceNumber();
    if (bracketed_ == number) {
        return true;
    }
    if (own_ != number && expected_ == 0) {
        return false;
    }
    const std::uint32_t owner = clipboard_.OwnerProcess();
    // The window that owned it may be gone.
    const bool isOurs = own_ == number && (owner == ownProcess_ || owner == 0);
    return isOurs || (owner != 0 && owner == expected_);
}

void MyCopyGuard::NoteSince(std::uint32_t number) {
    if (const std::uint32_t now = clipboard_.SequenceNumber(); now != number) {
        own_ = kNoted | now;
    }
}

void MyCopyGuard::EndBlock() {
    log_.Write(Concat(u"WM_DELAY_UNLOCK received bIsMyCopy=", int{IsMyCopy()}));
    std::int32_t count = count_;
    while (count != 0 && !count_.compare_exchange_weak(count, count - 1)) {
    }
    if (count != 0) {
        Note(count - 1);
    }
}

void MyCopyGuard::EndBracket() {
    bracketed_ = kNoted | clipboard_.SequenceNumber();
    count_ = 0;
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

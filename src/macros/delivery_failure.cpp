// SPDX-License-Identifier: MIT
#include "macros/delivery_failure.h"

#include "base/text.h"
#include "macros/text_shortening.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kTextShown = 60;

int ReasonString(DeliveryFailure failure) {
    switch (failure) {
        case DeliveryFailure::TargetGone:
            return kStrTargetGone;
        case DeliveryFailure::TargetElevated:
            return kStrTargetElevated;
        case DeliveryFailure::NotInFront:
            return kStrTargetNotInFront;
        case DeliveryFailure::NotRead:
            return kStrTargetNotReading;
        case DeliveryFailure::ClipboardInUse:
            return kStrClipboardInUse;
        default:
            return kStrNoInputTaken;
    }
}

}  // namespace

std::u16string DescribeFailure(DeliveryFailure failure, std::u16string_view text,
                               const Strings& texts) {
    if (failure == DeliveryFailure::NotStarted || failure == DeliveryFailure::ProgramEnds) {
        return {};
    }
    return Concat(texts.LoadString(kStrNotDelivered), u" [", ShortenMiddle(text, kTextShown),
                  u"]\n", texts.LoadString(ReasonString(failure)));
}

}  // namespace vbr

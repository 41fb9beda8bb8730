// SPDX-License-Identifier: MIT
#include "exchange/query.h"

namespace vbr {

std::u16string_view DescribeStateSelText(std::int32_t state) {
    switch (state) {
        case kSelTextNone:
            return u"No has selected text";
        case kSelTextFailed:
            return u"O-ooops! Cannot get selected text from target application";
        case kSelTextExtracted:
            return u"Wax! Text extracted by agent";
        default:
            return u"Та-а-а-к! Чего ха *ерня? тут вообще никогда не должно оказаться выполнение "
                   u"кода...";
    }
}

}  // namespace vbr

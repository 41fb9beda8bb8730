// SPDX-License-Identifier: MIT
#include "phrases/command_record.h"

#include <algorithm>
#include <limits>

#include "base/text.h"

namespace vbr {

std::int32_t DataTypeFromText(std::u16string_view word) {
    if (EqualsNoCase(word, u"RTF")) {
        return kDataTypeRtf;
    }
    return EqualsNoCase(word, u"EXEC") ? kDataTypeExec : kDataTypeText;
}

std::u16string_view DataTypeToText(std::int32_t value) {
    switch (value) {
        case kDataTypeRtf:
            return u"RTF";
        case kDataTypeExec:
            return u"EXEC";
        default:
            return u"TEXT";
    }
}

bool VBRCommand::IsEnabled() const {
    if (!IsGroup()) {
        return Enabled;
    }
    return std::any_of(Commands->begin(), Commands->end(),
                       [](const VBRCommand& child) { return child.IsEnabled(); });
}

bool VBRCommand::StampDateUsage(const SystemTime& utcNow) {
    if (IsGroup()) {
        return false;
    }
    DateUsage = utcNow;
    return true;
}

void VBRCommand::AddUsage() {
    if (UsageCount < std::numeric_limits<std::int32_t>::max()) {
        ++UsageCount;
    }
}

}  // namespace vbr

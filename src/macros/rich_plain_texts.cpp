// SPDX-License-Identifier: MIT
#include "macros/rich_plain_texts.h"

#include <functional>

#include "macros/rich_macros.h"
#include "platform/rich_reader.h"

namespace vbr {
namespace {

// So many UTF-16 units are kept, 4 MiB.
constexpr std::size_t kMaxKeptUnits = 2U << 20;
constexpr std::size_t kUnitsOfEntry = 64;  // what one costs beside its text

}  // namespace

const std::u16string& RichPlainTexts::PlainTextOf(std::u16string_view source,
                                                  std::u16string_view title) {
    const Content content(std::hash<std::u16string_view>()(source), source.size());
    if (const auto kept = texts_.find(content); kept != texts_.end()) {
        return kept->second;
    }
    std::u16string text;
    if (LoadRichPhrase(source, engine_)) {
        text = engine_.PlainText();
    } else {
        log_.LogError(RichFailure(title));
        text = ReadRichText(source, engine_);
    }
    const std::size_t units = text.size() + kUnitsOfEntry;
    if (units_ + units > kMaxKeptUnits) {
        texts_.clear();
        units_ = 0;
    }
    units_ += units;
    return texts_.emplace(content, std::move(text)).first->second;
}

}  // namespace vbr

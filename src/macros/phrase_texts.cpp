// SPDX-License-Identifier: MIT
#include "macros/phrase_texts.h"

#include "macros/text_shortening.h"

namespace vbr {
namespace {

constexpr int kTitleLimit = 40;

}  // namespace

std::u16string PhraseTitle(const VBRCommand& record) {
    return ShortenTitle(record.Text, kTitleLimit);
}

}  // namespace vbr

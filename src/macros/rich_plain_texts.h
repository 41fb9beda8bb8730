// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/log.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// The plain texts of formatted phrases. A text is kept for the next menu, since the engine has to
// read the whole source for it. Belongs to the main thread.
class RichPlainTexts {
  public:
    RichPlainTexts(RichTextEngine& engine, Log& log) : engine_(engine), log_(log) {}

    // As RichToPlainText. At the first time, the log tells of a source that the engine refuses,
    // with the phrase's title. Valid until the next call.
    const std::u16string& PlainTextOf(std::u16string_view source, std::u16string_view title);

  private:
    using Content = std::pair<std::size_t, std::size_t>;  // hash and size

    RichTextEngine& engine_;
    Log& log_;
    std::map<Content, std::u16string> texts_;
    std::size_t units_ = 0;  // in all of them
};

}  // namespace vbr

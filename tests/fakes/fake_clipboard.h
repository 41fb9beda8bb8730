// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/journal.h"
#include "platform/clipboard.h"

namespace vbr {

// Holds one text.
class FakeClipboard : public Clipboard {
  public:
    explicit FakeClipboard(Journal& calls) : calls_(calls) {}

    std::u16string Content;

    bool Empty() override {
        calls_.push_back("empty");
        Content.clear();
        return true;
    }
    std::u16string Text() const override {
        calls_.push_back("read");
        return Content;
    }
    std::u16string UnicodeText() const override { return Content; }

  private:
    Journal& calls_;
};

}  // namespace vbr

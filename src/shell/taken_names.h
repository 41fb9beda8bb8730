// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/log.h"

namespace vbr {

// Names of kernel objects that the program doesn't get, since another one holds them. It goes on
// without what they serve.
class TakenNames {
  public:
    explicit TakenNames(Log& log) : log_(log) {}

    void Note(std::u16string_view name) {
        any_ = true;
        log_.LogError(
            Concat(u"Another program holds the name ", name, u": what it is for does not work"));
        if (tell_) {
            tell_();
        }
    }

    // Tells the user of what was noted so far, and of what is noted later; null ends it.
    void OnNoted(std::function<void()> tell) {
        tell_ = std::move(tell);
        if (any_ && tell_) {
            tell_();
        }
    }

  private:
    Log& log_;
    bool any_ = false;
    std::function<void()> tell_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/alert_box.h"
#include "platform/log.h"
#include "platform/strings.h"

namespace vbr {

// Tells the user about a failure of the program itself: a box with the error icon, on top of all
// windows, and mostly a line in the log.
class ErrorReport {
  public:
    ErrorReport(Log& log, const Strings& strings, AlertBox& box)
        : log_(log), strings_(strings), box_(box) {}

    // The log's error line, then the box.
    void ReportError(std::u16string_view text);

    // The same with the exception's code and name behind the text.
    void ReportException(std::u16string_view text, std::uint32_t code);

    // The box alone.
    void ShowError(std::u16string_view text);

  private:
    Log& log_;
    const Strings& strings_;
    AlertBox& box_;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "diagnostics/error_report.h"

#include "base/text.h"
#include "diagnostics/exception_names.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// The error icon, on top of all windows.
constexpr std::uint32_t kErrorBoxFlags = 0x40010;

}  // namespace

void ErrorReport::ReportError(std::u16string_view text) {
    log_.LogError(text);
    ShowError(text);
}

void ErrorReport::ReportException(std::u16string_view text, std::uint32_t code) {
    ReportError(
        Concat(text, u" GetExceptionCode=", code, u" status=[", ExceptionCodeName(code), u"]"));
}

void ErrorReport::ShowError(std::u16string_view text) {
    box_.Show(text, strings_.LoadString(kStrProductName), kErrorBoxFlags);
}

}  // namespace vbr

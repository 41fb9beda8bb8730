// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

#include "diagnostics/error_report.h"
#include "platform/fault_catcher.h"

namespace vbr {

// What is reported about a fault in each section.
inline constexpr std::u16string_view kFaultMakeMenu =
    u"ERROR: Exception in IDataNeededHander_MenuSelf::MakeMenu";
inline constexpr std::u16string_view kFaultMeasureItem =
    u"ERROR: Exception in IDataNeededHander_MenuSelf::OnMenuMEASUREITEM";
inline constexpr std::u16string_view kFaultDrawItem =
    u"ERROR: Exception in IDataNeededHander_MenuSelf::OnMenuDRAWITEMSTRUCT";
inline constexpr std::u16string_view kFaultAddClipboardHistory =
    u"ERROR: Exception in IDataNeededHander_MenuSelf::AddClipboardHistoryIntoMenu";
inline constexpr std::u16string_view kFaultCleanupMenu =
    u"Crash: on IDataNeededHander_MenuSelf::CleanupMenu";
inline constexpr std::u16string_view kFaultShellNotify = u"Exception in Shell_Notify";

// The sections in which a fault is reported, and the program goes on.
class GuardedSections {
  public:
    GuardedSections(FaultCatcher& catcher, ErrorReport& report)
        : catcher_(catcher), report_(report) {}

    // Where a section tells a failure that is no fault.
    ErrorReport& Report() { return report_; }
    // For a fault that nobody needs to hear of.
    FaultCatcher& Catcher() { return catcher_; }

    // What `work` gives; after a fault in it `onFault`, once the fault has been reported.
    template <typename Work>
    std::invoke_result_t<Work&> Run(std::u16string_view text, std::invoke_result_t<Work&> onFault,
                                    Work&& work) {
        return RunCaught(catcher_, work, [&](std::uint32_t code) {
            report_.ReportException(text, code);
            return std::move(onFault);
        });
    }
    template <typename Work>
    void Run(std::u16string_view text, Work&& work) {
        RunCaught(catcher_, work, [&](std::uint32_t code) { report_.ReportException(text, code); });
    }

    // The same, but the user sees the text alone and the log says nothing.
    template <typename Work>
    std::invoke_result_t<Work&> RunWithBox(std::u16string_view text,
                                           std::invoke_result_t<Work&> onFault, Work&& work) {
        return RunCaught(catcher_, work, [&](std::uint32_t) {
            report_.ShowError(text);
            return std::move(onFault);
        });
    }

  private:
    FaultCatcher& catcher_;
    ErrorReport& report_;
};

}  // namespace vbr

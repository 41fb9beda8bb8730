// SPDX-License-Identifier: MIT
#include "exchange/wait_query.h"

#include "base/text.h"

namespace vbr {

std::uint32_t CWaitQuery::ThreadProc_WaitQuery() {
    std::uint32_t result = 0;
    std::uint32_t errorCode = 0;
    bool firstTime = true;
    for (;;) {
        const QueryWake wake = signals_.Wait(errorCode);
        if (wake == QueryWake::DataNeeded) {
            ProcessQuery();
            continue;
        }
        if (wake == QueryWake::Stop) {
            errorCode = 0;
            break;
        }
        result = 1;
        log_.LogError(Concat(u"Default on CWaitQuery::ThreadProc_WaitQuery error_code=", errorCode,
                             u", this is first time? =", int{firstTime}));
        if (!firstTime) {
            break;
        }
        firstTime = false;
        signals_.ResetDataNeeded();
        if (!signals_.IsDataNeededQuiet()) {
            break;
        }
        log_.LogError(u"WOW! I may reanimate event for query, continue ZAEBIS!");
        result = 0;
        errorCode = 0;
    }
    log_.Write(Concat(u"Exit from ThreadProc_WaitQuery [ret_value=", result, u", error_code=",
                      errorCode, u"]"));
    if (result == 1) {
        receiver_.ReportWaitError();
    }
    return result;
}

void CWaitQuery::ProcessQuery() {
    const auto exchange = std::make_shared<QueryExchange>();
    WPQuery& query = exchange->Query;
    const bool wasRead = area_.ReadQuery(query);
    // Only now may the next query be laid into the area.
    signals_.ResetDataNeeded();
    if (!wasRead) {
        log_.Write(u"Cannot read query from MMF");
        signals_.SetDataCompleted();
        return;
    }
    if (query.StateSelText == kSelTextFailed && query.SelText.empty()) {
        Selection selection = selection_.ExtractSelectedText(query.TargetWindow);
        query.StateSelText = selection.State;
        query.SelText = std::move(selection.Text);
    }
    LogQuery(query);
    if (!receiver_.Deliver(exchange)) {
        return;
    }
    signals_.ResetDataCompleted();
    if (area_.WriteAnswer(exchange->Answer)) {
        signals_.SetDataCompleted();
    }
}

void CWaitQuery::LogQuery(const WPQuery& query) const {
    log_.Write(Concat(u"Received query:\r\n\tExe: ", query.AppPath, u"\r\n\tClassName: ",
                      query.WindowClassName, u"\r\n\tHKL: ", query.Hkl, u"\r\n\tSelText: [",
                      query.SelText, u"]", u"\r\n\tSelText State: [",
                      DescribeStateSelText(query.StateSelText), u"]"));
}

}  // namespace vbr

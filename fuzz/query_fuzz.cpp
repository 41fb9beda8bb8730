// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <string>

#include "exchange/exchange_documents.h"
#include "fuzzing.h"

// Any bytes can lie in the interchange area: they are read as a query or refused, the same way each
// time, and a query that is refused stays as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string document(vbr::InputText(data, size));
    vbr::WPQuery first;
    vbr::WPQuery second;
    const bool isQuery = vbr::ParseQuery(document, first);
    const bool again = vbr::ParseQuery(document, second);
    const bool isSame = first.AppPath == second.AppPath && first.SelText == second.SelText &&
                        first.TargetWindow == second.TargetWindow && first.Hkl == second.Hkl &&
                        first.GuiThreadInfo == second.GuiThreadInfo;
    const bool isUntouched = first.AppPath.empty() && first.SelText.empty() &&
                             first.TargetWindow == 0 && first.PointX == -1;
    vbr::Require(isQuery == again && isSame && (isQuery || isUntouched));
    return 0;
}

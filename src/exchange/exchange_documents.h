// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "exchange/answer.h"
#include "exchange/query.h"
#include "platform/log.h"

// The documents that the program and the hook library lay into the interchange area: XML in UTF-8.
namespace vbr {

// Fills the query from a WPQuery document. False when the text holds no such element. What is
// missing keeps its initial value, and so does a number that can't be one of its kind.
bool ParseQuery(std::string_view document, WPQuery& query);

// The WPAnswer document; empty when it can't be printed. An empty group is logged.
std::string AnswerDocument(const WPAnswer& answer, Log& log);

}  // namespace vbr

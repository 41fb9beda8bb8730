// SPDX-License-Identifier: MIT
#include "exchange/interchange_area.h"

#include "base/text.h"
#include "exchange/exchange_documents.h"

namespace vbr {
namespace {

constexpr int kCheckedLength = 409'600;  // bytes that are looked at before a text is trusted

}  // namespace

bool InterchangeArea::ReadQuery(WPQuery& query) {
    if (!held_) {
        held_ = memory_.OpenBlock(name_);
    }
    if (!held_) {
        log_.Write(u"cannot open file");
        return false;
    }
    const SharedText text = held_->Read();
    if (text.State == SharedTextState::NotMapped) {
        log_.Write(u"cannot MapViewOfFile");
        return false;
    }
    log_.Write(
        Concat(u"Read A from buffer, filelen=", text.Bytes.size(), u" max_len=", kCheckedLength));
    return text.State == SharedTextState::Read && !text.Bytes.empty() &&
           ParseQuery(text.Bytes, query);
}

bool InterchangeArea::WriteAnswer(const WPAnswer& answer) const {
    if (answer.Items.empty()) {
        return false;
    }
    const std::string text = AnswerDocument(answer, log_);
    if (text.empty()) {
        return false;
    }
    // This opens the area that exists.
    const auto block = memory_.Create(name_, static_cast<std::uint32_t>(text.size() + 1));
    if (!block || !block->Write(text)) {
        log_.Write(u"Cannot write answer to MMF\n");
        return false;
    }
    return true;
}

}  // namespace vbr

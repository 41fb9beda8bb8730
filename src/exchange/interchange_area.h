// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "exchange/answer.h"
#include "exchange/query.h"
#include "platform/log.h"
#include "platform/shared_memory.h"

namespace vbr {

// The named memory in which the program and the hook library lay their documents. A document
// starts at offset 0 and ends at its zero byte.
class InterchangeArea {
  public:
    InterchangeArea(SharedMemory& memory, std::u16string_view name, Log& log)
        : memory_(memory), name_(name), log_(log) {}

    // Fills the query from the document in the area; false when there is none that can be read.
    // Holds on to the area, so that the next query is read at once.
    bool ReadQuery(WPQuery& query);
    void LetGo() { held_.reset(); }

    // Lays the answer into the area. False when it has no items, which is no failure, or the area
    // can't be written.
    bool WriteAnswer(const WPAnswer& answer) const;

  private:
    SharedMemory& memory_;
    std::u16string name_;
    Log& log_;
    std::unique_ptr<SharedBlock> held_;
};

}  // namespace vbr

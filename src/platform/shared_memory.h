// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vbr {

enum class SharedTextState {
    Read,
    NotMapped,   // the system gives no view of it
    NotReadable  // no zero byte ends the text
};

struct SharedText {
    SharedTextState State = SharedTextState::NotMapped;
    std::string Bytes;  // without the zero byte
};

// A block of named memory that lives as long as this object or any other process holds it.
class SharedBlock {
  public:
    virtual ~SharedBlock() = default;

    // Replaces what stands in the block by the text and a zero byte; false, with the old text kept,
    // when it does not fit.
    virtual bool Write(std::string_view text) = 0;

    // The text at the start of the block, up to its zero byte.
    virtual SharedText Read() = 0;
};

// Memory that other processes open by its name.
class SharedMemory {
  public:
    virtual ~SharedMemory() = default;

    // Creates or opens a block of that many bytes, open to everybody; null on failure.
    virtual std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) = 0;

    // Opens a block that exists, for reading alone; null when there is none or it may not be read.
    virtual std::unique_ptr<SharedBlock> OpenBlock(std::u16string_view name) = 0;
};

}  // namespace vbr

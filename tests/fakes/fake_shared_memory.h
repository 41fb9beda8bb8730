// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

#include "platform/shared_memory.h"

namespace vbr {

// Blocks of named memory, each with the text written last, and how many handles were made.
class FakeSharedMemory : public SharedMemory {
  public:
    std::map<std::u16string, std::string> Blocks;
    int Made = 0;
    bool Fails = false;
    SharedTextState ReadState = SharedTextState::Read;

    std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) override {
        if (Fails) {
            return nullptr;
        }
        ++Made;
        return std::make_unique<Block>(*this, Blocks[std::u16string(name)], bytes);
    }

    std::unique_ptr<SharedBlock> OpenBlock(std::u16string_view name) override {
        const auto block = Blocks.find(std::u16string(name));
        return block == Blocks.end() ? nullptr : std::make_unique<Block>(*this, block->second, 0U);
    }

  private:
    class Block : public SharedBlock {
      public:
        Block(const FakeSharedMemory& memory, std::string& content, std::uint32_t bytes)
            : memory_(memory), content_(content), bytes_(bytes) {}
        bool Write(std::string_view text) override {
            if (text.size() + 1 > bytes_) {
                return false;
            }
            content_ = text;
            return true;
        }
        SharedText Read() override {
            const bool reads = memory_.ReadState == SharedTextState::Read;
            return {memory_.ReadState, reads ? content_ : std::string()};
        }

      private:
        const FakeSharedMemory& memory_;
        std::string& content_;
        std::uint32_t bytes_;
    };
};

}  // namespace vbr

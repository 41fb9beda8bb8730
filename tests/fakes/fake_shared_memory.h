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
    SharedTextState ReadState = SharedTextState::NotOpened;  // of a block that isn't there

    std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) override {
        if (Fails) {
            return nullptr;
        }
        ++Made;
        return std::make_unique<Block>(Blocks[std::u16string(name)], bytes);
    }

    SharedText ReadText(std::u16string_view name) const override {
        const auto block = Blocks.find(std::u16string(name));
        return block == Blocks.end() ? SharedText{ReadState, {}}
                                     : SharedText{SharedTextState::Read, block->second};
    }

  private:
    class Block : public SharedBlock {
      public:
        Block(std::string& content, std::uint32_t bytes) : content_(content), bytes_(bytes) {}
        bool Write(std::string_view text) override {
            if (text.size() + 1 > bytes_) {
                return false;
            }
            content_ = text;
            return true;
        }

      private:
        std::string& content_;
        std::uint32_t bytes_;
    };
};

}  // namespace vbr

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

    std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) override {
        if (Fails) {
            return nullptr;
        }
        ++Made;
        return std::make_unique<Block>(Blocks[std::u16string(name)], bytes);
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

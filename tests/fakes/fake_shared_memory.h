// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fakes/journal.h"
#include "platform/shared_memory.h"

namespace vbr {

// Blocks of named memory, each with the text written last, and how many handles were made.
class FakeSharedMemory : public SharedMemory {
  public:
    explicit FakeSharedMemory(Journal* calls = nullptr) : calls_(calls) {}

    std::map<std::u16string, std::string> Blocks;
    int Made = 0;
    bool Fails = false;
    SharedTextState ReadState = SharedTextState::Read;

    std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) override {
        if (Fails) {
            return nullptr;
        }
        ++Made;
        Note("make ", name);
        return std::make_unique<Block>(*this, std::u16string(name), bytes);
    }

    std::unique_ptr<SharedBlock> OpenBlock(std::u16string_view name) override {
        const std::u16string key(name);
        return Blocks.contains(key) ? std::make_unique<Block>(*this, key, 0U) : nullptr;
    }

  private:
    class Block : public SharedBlock {
      public:
        Block(FakeSharedMemory& memory, std::u16string name, std::uint32_t bytes)
            : memory_(memory),
              name_(std::move(name)),
              bytes_(bytes),
              content_(memory.Blocks[name_]) {}
        ~Block() override { memory_.Note("close ", name_); }

        bool Write(std::string_view text) override {
            if (text.size() + 1 > bytes_) {
                return false;
            }
            memory_.Note("write ", name_);
            content_ = text;
            return true;
        }
        SharedText Read() override {
            const bool reads = memory_.ReadState == SharedTextState::Read;
            return {memory_.ReadState, reads ? content_ : std::string()};
        }

      private:
        FakeSharedMemory& memory_;
        std::u16string name_;
        std::uint32_t bytes_;
        std::string& content_;
    };

    void Note(std::string_view call, std::u16string_view name) {
        if (calls_) {
            calls_->push_back(std::string(call) + Utf16ToUtf8(name));
        }
    }

    Journal* calls_;
};

}  // namespace vbr

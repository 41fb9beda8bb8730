// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "fakes/journal.h"
#include "platform/clipboard_access.h"

namespace vbr {

// A clipboard of blocks, with owners and holders that misbehave on demand. Like the real one it
// opens once at a time; a second Open fails.
class FakeClipboardAccess : public ClipboardAccess {
  public:
    static constexpr int kAlways = -1;
    static constexpr int kNever = -1;
    static constexpr std::uint32_t kOwnProcess = 4711;  // the program's

    explicit FakeClipboardAccess(Journal* calls = nullptr) : calls_(calls) {}

    std::vector<ClipboardBlock> Blocks;    // in the order of Formats
    std::set<std::uint32_t> Unreadable;    // formats that give no data
    std::set<std::uint32_t> Refused;       // formats that the system doesn't take
    std::function<void()> OnOpen = [] {};  // once
    int FailingOpens = 0;                  // that many, or kAlways
    int ReadsUntilOwnerHangs = kNever;     // an Empty, here or elsewhere, ends that owner
    std::uint32_t Owner = 0;               // OwnerProcess
    std::uint32_t Sequence = 1;            // SequenceNumber; grows by each Empty and Write
    std::map<std::u16string, std::uint32_t> Registered;

    // What another program does: replaces the content.
    void Copy(std::vector<ClipboardBlock> blocks) {
        Blocks = std::move(blocks);
        ReadsUntilOwnerHangs = kNever;
        ++Sequence;
        if (Owner == kOwnProcess) {
            Owner = 0;
        }
    }
    // A memory block of these bytes.
    static ClipboardBlock Memory(std::uint32_t format, std::string_view bytes) {
        const auto* data = reinterpret_cast<const std::byte*>(bytes.data());
        return {.Format = format, .Bytes = {data, data + bytes.size()}};
    }
    // CF_UNICODETEXT with its terminator.
    static ClipboardBlock Text(std::u16string text) {
        text.push_back(u'\0');
        return Memory(kClipUnicodeText,
                      {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
    }
    // A block of a registered format.
    ClipboardBlock Named(std::u16string_view name, std::string_view bytes) {
        ClipboardBlock block = Memory(RegisterFormat(name), bytes);
        block.Name = name;
        return block;
    }
    // Null when the content lacks the format.
    const ClipboardBlock* Find(std::uint32_t format) const {
        const auto found = std::ranges::find(Blocks, format, &ClipboardBlock::Format);
        return found == Blocks.end() ? nullptr : &*found;
    }
    // The content without the marks of what is there for an instant, and whether it has them all.
    std::vector<ClipboardBlock> Unmarked() const {
        std::vector<ClipboardBlock> blocks;
        std::ranges::copy_if(Blocks, std::back_inserter(blocks),
                             [this](const ClipboardBlock& block) { return !IsMark(block); });
        return blocks;
    }
    bool IsMarked() const { return Blocks.size() == Unmarked().size() + PassingMarks().size(); }
    bool IsOpen() const { return open_; }

    std::unique_ptr<ClipboardSession> Open(std::uint32_t patienceMs) override {
        Note("open " + std::to_string(patienceMs));
        if (open_ || FailingOpens == kAlways) {
            return nullptr;
        }
        if (FailingOpens > 0) {
            --FailingOpens;
            return nullptr;
        }
        std::exchange(OnOpen, [] {})();
        return std::make_unique<Session>(*this);
    }
    bool IsFormatAvailable(std::uint32_t format) const override { return Find(format) != nullptr; }
    std::uint32_t RegisterFormat(std::u16string_view name) override {
        constexpr std::uint32_t kFirstRegistered = 0xC000;
        const auto next = static_cast<std::uint32_t>(kFirstRegistered + Registered.size());
        return Registered.try_emplace(std::u16string(name), next).first->second;
    }
    std::uint32_t SequenceNumber() const override { return Sequence; }
    std::uint32_t OwnerProcess() const override { return Owner; }

  private:
    class Session : public ClipboardSession {
      public:
        explicit Session(FakeClipboardAccess& clipboard) : clipboard_(clipboard) {
            clipboard_.open_ = true;
        }
        ~Session() override {
            clipboard_.open_ = false;
            clipboard_.Note("close");
        }
        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;

        std::vector<std::uint32_t> Formats() const override {
            std::vector<std::uint32_t> formats;
            for (const ClipboardBlock& block : clipboard_.Blocks) {
                formats.push_back(block.Format);
            }
            return formats;
        }
        std::u16string FormatName(std::uint32_t format) const override {
            for (const auto& [name, number] : clipboard_.Registered) {
                if (number == format) {
                    return name;
                }
            }
            return {};
        }
        bool DoesOwnerAnswer(std::uint32_t milliseconds) const override {
            clipboard_.Note("ask " + std::to_string(milliseconds));
            return clipboard_.ReadsUntilOwnerHangs != 0;
        }
        std::optional<ClipboardBlock> Read(std::uint32_t format) const override {
            clipboard_.Note("read " + std::to_string(format));
            if (clipboard_.ReadsUntilOwnerHangs > 0) {
                --clipboard_.ReadsUntilOwnerHangs;
            }
            const ClipboardBlock* block = clipboard_.Find(format);
            if (!block || clipboard_.Unreadable.contains(format)) {
                return std::nullopt;
            }
            ClipboardBlock read = *block;
            read.Name = FormatName(format);
            return read;
        }
        bool Empty() override {
            clipboard_.Note("empty");
            clipboard_.Copy({});
            clipboard_.Owner = kOwnProcess;
            return true;
        }
        bool Write(const ClipboardBlock& block) override {
            const std::uint32_t format =
                block.Name.empty() ? block.Format : clipboard_.RegisterFormat(block.Name);
            clipboard_.Note("write " + std::to_string(format));
            if (clipboard_.Refused.contains(format)) {
                return false;
            }
            ++clipboard_.Sequence;
            std::erase_if(clipboard_.Blocks,
                          [format](const ClipboardBlock& old) { return old.Format == format; });
            clipboard_.Blocks.push_back(block);
            clipboard_.Blocks.back().Format = format;
            return true;
        }

      private:
        FakeClipboardAccess& clipboard_;
    };

    bool IsMark(const ClipboardBlock& block) const {
        return std::ranges::any_of(PassingMarks(), [&](const ClipboardBlock& mark) {
            const auto number = Registered.find(mark.Name);
            return number != Registered.end() && number->second == block.Format &&
                   block.Bytes == mark.Bytes;
        });
    }
    void Note(std::string call) {
        if (calls_) {
            calls_->push_back(std::move(call));
        }
    }

    Journal* calls_;
    bool open_ = false;
};

}  // namespace vbr

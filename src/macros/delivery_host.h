// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vbr {

// What the user hears of a delivery, numbered as the event sounds.
enum class DeliverySound { TextInserted = 0, ProgramLaunched = 1 };

// An item of the clipboard history as a phrase: plain text or Rich Text Format source.
struct ClipText {
    std::int32_t DataType = 0;
    std::u16string Text;
};

// What a delivery asks of the program around it. Belongs to the main thread.
class DeliveryHost {
  public:
    virtual ~DeliveryHost() = default;

    virtual void PlayEventSound(DeliverySound sound) = 0;
    // Between these two calls changes of the clipboard are the program's own. Pairs may nest.
    virtual void BeginOwnCopy() = 0;
    virtual void EndOwnCopy() = 0;
    // What was just put on the clipboard stays there.
    virtual void KeepClipboard() = 0;
    // Puts back what the clipboard held at the hot key.
    virtual void RestoreClipboard() = 0;
    // The history item at that position, the newest at 0; nothing when there is none, or when it is
    // neither text nor Rich Text Format.
    virtual std::optional<ClipText> HistoryItem(std::size_t position) const = 0;
};

}  // namespace vbr

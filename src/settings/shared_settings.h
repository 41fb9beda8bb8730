// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/shared_memory.h"

namespace vbr {

// What the editor reads from the shared settings area, an XML text in UTF-8.
std::string SharedSettingsText(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                               std::u16string_view selectedText);

// What the editor finds there.
struct SharedValues {
    std::uint16_t HotkeyVk = 0;
    std::uint16_t HotkeyMods = 0;
    bool Doubled = false;
    std::u16string SelectedText;  // whatever its length

    bool operator==(const SharedValues&) const = default;
};

// Nothing when no instance of the program has written, or what stands there can't be read.
std::optional<SharedValues> ReadSharedSettings(SharedMemory& memory);

// The named memory in which the editor finds the active hot key and the text that was selected when
// it was asked for. The area lives as long as this object, from the first write on.
class SharedSettings {
  public:
    explicit SharedSettings(SharedMemory& memory) : memory_(memory) {}

    // False when the text does not fit or the area can't be made; what stood there then stays.
    // Callable from any thread.
    bool WriteSharedSettings(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                             std::u16string_view selectedText);

    // The same for a start of the editor: a text that does not fit stands in an area of its own.
    void HandOver(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                  std::u16string_view selectedText);

  private:
    SharedMemory& memory_;
    std::mutex lock_;
    std::unique_ptr<SharedBlock> area_;
    std::unique_ptr<SharedBlock> longText_;  // null while there is none
};

}  // namespace vbr

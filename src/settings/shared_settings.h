// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/shared_memory.h"

namespace vbr {

// What the editor reads from the shared settings area, an XML text in UTF-8.
std::string SharedSettingsText(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                               std::u16string_view selectedText);

// The named memory in which the editor finds the active hot key and the text that was selected when
// it was asked for. The area lives as long as this object, from the first write on.
class SharedSettings {
  public:
    explicit SharedSettings(SharedMemory& memory) : memory_(memory) {}

    // False when the text does not fit or the area can't be made; what stood there then stays.
    // Callable from any thread.
    bool WriteSharedSettings(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                             std::u16string_view selectedText);

  private:
    SharedMemory& memory_;
    std::mutex lock_;
    std::unique_ptr<SharedBlock> area_;
};

}  // namespace vbr

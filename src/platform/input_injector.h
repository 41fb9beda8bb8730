// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vbr {

// Virtual key codes and event flags of Win32 that the program sends.
inline constexpr std::uint16_t kVkTab = 9;
inline constexpr std::uint16_t kVkShift = 16;
inline constexpr std::uint16_t kVkControl = 17;
inline constexpr std::uint16_t kVkMenu = 18;
inline constexpr std::uint16_t kVkLeft = 37;
inline constexpr std::uint16_t kVkC = 0x43;
inline constexpr std::uint16_t kVkV = 0x56;
inline constexpr std::uint16_t kVkLeftWin = 91;
inline constexpr std::uint16_t kVkRightWin = 92;
inline constexpr std::uint16_t kVkLeftShift = 160;
inline constexpr std::uint16_t kVkRightShift = 161;
inline constexpr std::uint16_t kVkLeftControl = 162;
inline constexpr std::uint16_t kVkRightControl = 163;
inline constexpr std::uint16_t kVkLeftMenu = 164;
inline constexpr std::uint16_t kVkRightMenu = 165;
inline constexpr std::uint16_t kVkOem3 = 192;  // left of the 1 on most keyboards
// Of no key: programs make nothing of them.
inline constexpr std::uint16_t kVkUnassigned = 0xE8;
inline constexpr std::uint16_t kVkUnassigned2 = 0x97;
inline constexpr std::uint16_t kVkUnassigned3 = 0x9F;

inline constexpr std::uint32_t kKeyExtended = 1;
inline constexpr std::uint32_t kKeyUp = 2;
inline constexpr std::uint32_t kKeyUnicode = 4;

// One synthetic keyboard event, as Win32's KEYBDINPUT; the system stamps its time.
struct KeyEvent {
    std::uint16_t Vk = 0;
    std::uint16_t Scan = 0;
    std::uint32_t Flags = 0;

    bool operator==(const KeyEvent&) const = default;
};

// Puts keyboard events into the input queue of the desktop and tells the keys' state. Callable from
// any thread.
class InputInjector {
  public:
    virtual ~InputInjector() = default;

    // All events in one call, so that no other input comes between them. The number of events that
    // the system took, from the first on.
    virtual std::size_t Send(std::span<const KeyEvent> events) = 0;

    // Whether the key is held down at this moment.
    virtual bool IsKeyDown(std::uint16_t vk) const = 0;
    // Whether the key is down for the calling thread, or one whose input it has joined, as the
    // input that it has read says.
    virtual bool IsDownAsRead(std::uint16_t vk) const = 0;

    virtual std::uint16_t ScanCode(std::uint16_t vk) const = 0;
};

}  // namespace vbr

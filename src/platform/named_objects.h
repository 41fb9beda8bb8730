// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/system_error.h"

namespace vbr {

enum class EventReset { Manual, Automatic };

// Who may open a named object: everybody, whatever their rights, or who the system's default says.
enum class ObjectAccess { World, Default };

enum class WaitResult { Signalled, TimedOut, Failed };

// A kernel event that other processes reach by its name.
class NamedEvent {
  public:
    virtual ~NamedEvent() = default;

    // Another process had made it before this one opened it.
    virtual bool WasThere() const = 0;

    virtual void Set() = 0;
    virtual void Reset() = 0;
    virtual WaitResult Wait(std::uint32_t milliseconds) = 0;
    // Guards the handle against being closed by mistake.
    virtual void ProtectFromClose(bool on) = 0;
};

// The named events of the session.
class NamedObjects {
  public:
    virtual ~NamedObjects() = default;

    // Creates or opens the event; null when neither works.
    virtual std::unique_ptr<NamedEvent> Create(std::u16string_view name, EventReset reset,
                                               ObjectAccess access) = 0;
    // Waits for an existing event to be set. The error has the code 0 when the time was over first.
    virtual std::optional<SystemError> WaitFor(std::u16string_view name,
                                               std::uint32_t milliseconds) = 0;
    virtual bool Exists(std::u16string_view name) = 0;
    // Sets an existing event; false when nobody has created it.
    virtual bool Signal(std::u16string_view name) = 0;
    // Sets and resets an existing event in one go.
    virtual bool Pulse(std::u16string_view name) = 0;
};

}  // namespace vbr

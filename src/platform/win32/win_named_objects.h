// SPDX-License-Identifier: MIT
#pragma once

#include "platform/named_objects.h"
#include "platform/shared_memory.h"
#include "platform/win32/handle.h"

namespace vbr {

// An event of the kernel.
class WinNamedEvent : public NamedEvent {
  public:
    explicit WinNamedEvent(UniqueHandle handle, bool wasThere = false)
        : handle_(std::move(handle)), wasThere_(wasThere) {}

    bool WasThere() const override { return wasThere_; }
    void Set() override;
    void Reset() override;
    WaitResult Wait(std::uint32_t milliseconds) override;
    void ProtectFromClose(bool on) override;

    // Valid as long as this object.
    HANDLE Get() const { return handle_.get(); }

  private:
    UniqueHandle handle_;
    bool wasThere_;
};

class WinNamedObjects : public NamedObjects, public SharedMemory {
  public:
    std::unique_ptr<NamedEvent> Create(std::u16string_view name, EventReset reset,
                                       ObjectAccess access) override;
    std::optional<SystemError> WaitFor(std::u16string_view name,
                                       std::uint32_t milliseconds) override;
    bool Exists(std::u16string_view name) override;
    bool Signal(std::u16string_view name) override;
    bool Pulse(std::u16string_view name) override;

    std::unique_ptr<SharedBlock> Create(std::u16string_view name, std::uint32_t bytes) override;
    std::unique_ptr<SharedBlock> OpenBlock(std::u16string_view name) override;
};

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/win_named_objects.h"

#include "platform/win32/wide.h"
#include "platform/win32/world_security.h"

namespace vbr {
namespace {

class WinSharedBlock : public SharedBlock {
  public:
    explicit WinSharedBlock(UniqueHandle handle) : handle_(std::move(handle)) {}

  private:
    UniqueHandle handle_;
};

UniqueHandle OpenByName(std::u16string_view name, DWORD access) {
    return UniqueHandle(OpenEventW(access, FALSE, Wide(std::u16string(name))));
}

}  // namespace

void WinNamedEvent::Set() {
    SetEvent(handle_.get());
}

void WinNamedEvent::Reset() {
    ResetEvent(handle_.get());
}

WaitResult WinNamedEvent::Wait(std::uint32_t milliseconds) {
    switch (WaitForSingleObject(handle_.get(), milliseconds)) {
        case WAIT_OBJECT_0:
            return WaitResult::Signalled;
        case WAIT_TIMEOUT:
            return WaitResult::TimedOut;
        default:
            return WaitResult::Failed;
    }
}

void WinNamedEvent::ProtectFromClose(bool on) {
    SetHandleInformation(handle_.get(), HANDLE_FLAG_PROTECT_FROM_CLOSE,
                         on ? HANDLE_FLAG_PROTECT_FROM_CLOSE : 0);
}

std::unique_ptr<NamedEvent> WinNamedObjects::Create(std::u16string_view name, EventReset reset,
                                                    ObjectAccess access) {
    const std::u16string owned(name);
    UniqueHandle handle(CreateEventW(access == ObjectAccess::World ? WorldSecurity() : nullptr,
                                     reset == EventReset::Manual, FALSE,
                                     owned.empty() ? nullptr : Wide(owned)));
    return handle ? std::make_unique<WinNamedEvent>(std::move(handle)) : nullptr;
}

std::unique_ptr<NamedEvent> WinNamedObjects::Open(std::u16string_view name) {
    UniqueHandle handle = OpenByName(name, SYNCHRONIZE);
    return handle ? std::make_unique<WinNamedEvent>(std::move(handle)) : nullptr;
}

bool WinNamedObjects::Exists(std::u16string_view name) {
    return OpenByName(name, SYNCHRONIZE) != nullptr;
}

bool WinNamedObjects::Signal(std::u16string_view name) {
    const UniqueHandle handle = OpenByName(name, EVENT_MODIFY_STATE);
    return handle && SetEvent(handle.get());
}

bool WinNamedObjects::Pulse(std::u16string_view name) {
    const UniqueHandle handle = OpenByName(name, EVENT_MODIFY_STATE);
    return handle && SetEvent(handle.get()) && ResetEvent(handle.get());
}

std::unique_ptr<SharedBlock> WinNamedObjects::Create(std::u16string_view name,
                                                     std::uint32_t bytes) {
    UniqueHandle handle(CreateFileMappingW(INVALID_HANDLE_VALUE, WorldSecurity(), PAGE_READWRITE, 0,
                                           bytes, Wide(std::u16string(name))));
    return handle ? std::make_unique<WinSharedBlock>(std::move(handle)) : nullptr;
}

}  // namespace vbr

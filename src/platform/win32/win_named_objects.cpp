// SPDX-License-Identifier: MIT
#include "platform/win32/win_named_objects.h"

#include <cstring>

#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"
#include "platform/win32/world_security.h"

namespace vbr {
namespace {

class WinSharedBlock : public SharedBlock {
  public:
    // Of a block that is only read the size is not known.
    explicit WinSharedBlock(UniqueHandle handle, std::uint32_t bytes = 0)
        : handle_(std::move(handle)), bytes_(bytes) {}

    // A view for the write alone. The system would map up to the end of the block's last page,
    // which is more than the block promises.
    bool Write(std::string_view text) override {
        if (text.size() >= bytes_) {
            return false;
        }
        const auto view = MapView<char>(handle_.get(), FILE_MAP_WRITE, text.size() + 1);
        if (!view) {
            return false;
        }
        std::memcpy(view.get(), text.data(), text.size());
        view.get()[text.size()] = '\0';
        FlushViewOfFile(view.get(), text.size() + 1);
        return true;
    }

    // Keeps its view for the next time.
    SharedText Read() override {
        if (!view_) {
            MEMORY_BASIC_INFORMATION region{};
            view_ = MapView<const char>(handle_.get(), FILE_MAP_READ, 0);
            if (!view_ || VirtualQuery(view_.get(), &region, sizeof region) == 0) {
                view_.reset();
                return {SharedTextState::NotMapped, {}};
            }
            mapped_ = region.RegionSize;
        }
        // Another process may take the zero byte away while this looks for it.
        const std::string_view mapped(view_.get(), mapped_);
        const std::size_t end = mapped.find('\0');
        if (end == mapped.npos) {
            return {SharedTextState::NotReadable, {}};
        }
        return {SharedTextState::Read, std::string(mapped.substr(0, end))};
    }

  private:
    UniqueHandle handle_;
    std::uint32_t bytes_;
    UniqueView<const char> view_;
    std::size_t mapped_ = 0;
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
    const bool wasThere = GetLastError() == ERROR_ALREADY_EXISTS;
    return handle ? std::make_unique<WinNamedEvent>(std::move(handle), wasThere) : nullptr;
}

std::optional<SystemError> WinNamedObjects::WaitFor(std::u16string_view name,
                                                    std::uint32_t milliseconds) {
    const UniqueHandle handle = OpenByName(name, SYNCHRONIZE);
    if (!handle) {
        return SystemErrorOf(GetLastError());
    }
    const DWORD result = WaitForSingleObject(handle.get(), milliseconds);
    if (result == WAIT_OBJECT_0) {
        return std::nullopt;
    }
    return SystemErrorOf(result == WAIT_TIMEOUT ? ERROR_SUCCESS : GetLastError());
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
    return handle ? std::make_unique<WinSharedBlock>(std::move(handle), bytes) : nullptr;
}

std::unique_ptr<SharedBlock> WinNamedObjects::OpenBlock(std::u16string_view name) {
    UniqueHandle handle(OpenFileMappingW(FILE_MAP_READ, FALSE, Wide(std::u16string(name))));
    return handle ? std::make_unique<WinSharedBlock>(std::move(handle)) : nullptr;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "platform/clipboard_access.h"

namespace vbr {

// Formats whose handles only their owner can read are not read: owner display, private formats and
// private GDI objects.
class WinClipboardAccess : public ClipboardAccess {
  public:
    // `owner` will own what is written. When it is gone by then, the content has no owner; when it
    // is null the content can only be read and emptied.
    explicit WinClipboardAccess(HWND owner) : owner_(owner) {}

    std::unique_ptr<ClipboardSession> Open(std::uint32_t patienceMs) override;
    bool IsFormatAvailable(std::uint32_t format) const override;
    std::uint32_t RegisterFormat(std::u16string_view name) override;
    std::uint32_t SequenceNumber() const override;
    std::uint32_t OwnerProcess() const override;

  private:
    HWND owner_;
};

}  // namespace vbr

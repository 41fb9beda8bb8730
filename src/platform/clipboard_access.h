// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard_blocks.h"

namespace vbr {

// How long a program that holds the clipboard open is waited for.
inline constexpr std::uint32_t kClipboardPatienceMs = 500;

// An owner that doesn't answer for that long counts as hung, and its data is not read.
inline constexpr std::uint32_t kOwnerAnswerMs = 200;

// The clipboard held open; closed with this object.
class ClipboardSession {
  public:
    virtual ~ClipboardSession() = default;

    // In the order in which the owner gave them, those that the system adds behind them.
    virtual std::vector<std::uint32_t> Formats() const = 0;
    // The name of a registered format; empty for a standard one.
    virtual std::u16string FormatName(std::uint32_t format) const = 0;
    // Whether the window that owns the content, if any, answers within the time. A hung owner makes
    // reading a format wait for many seconds.
    virtual bool DoesOwnerAnswer(std::uint32_t milliseconds) const = 0;
    // Nothing when there is no such format, its owner gives no data, or it can't be copied.
    virtual std::optional<ClipboardBlock> Read(std::uint32_t format) const = 0;

    virtual bool Empty() = 0;
    // Adds a format behind Empty; by its name when it has one. False when the system refuses.
    virtual bool Write(const ClipboardBlock& block) = 0;
};

// The clipboard of the desktop, format by format.
class ClipboardAccess {
  public:
    virtual ~ClipboardAccess() = default;

    // Tries again for that long while another program holds the clipboard, once when it is 0; null
    // when it does all the time.
    virtual std::unique_ptr<ClipboardSession> Open(std::uint32_t patienceMs) = 0;
    // Without opening it.
    virtual bool IsFormatAvailable(std::uint32_t format) const = 0;
    // The number of a registered format in this session; 0 when the system refuses.
    virtual std::uint32_t RegisterFormat(std::u16string_view name) = 0;
    // Grows with every change of the content.
    virtual std::uint32_t SequenceNumber() const = 0;
    // The process whose window owns the content; 0 when none does.
    virtual std::uint32_t OwnerProcess() const = 0;
};

}  // namespace vbr

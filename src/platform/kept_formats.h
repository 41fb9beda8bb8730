// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/clipboard_access.h"

namespace vbr {

// The formats of the open clipboard that make it up, in its order: without those that the system
// makes from the others by itself, and without those that mean something only while their owner
// answers. Nothing when the content can't be given back without its owner.
std::optional<std::vector<std::uint32_t>> KeptFormats(const ClipboardSession& session);

}  // namespace vbr

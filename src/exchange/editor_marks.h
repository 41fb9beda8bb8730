// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clipboard_access.h"

namespace vbr {

// Whether the open clipboard holds a whole line that an editor copied because nothing was selected,
// as the editor's own formats mark it.
bool IsCopyWithoutSelection(const ClipboardSession& session);

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <string_view>

#include "exchange/query.h"
#include "hook/posted/heap_block.h"

namespace vbr::hook {

// What is selected in a control, as far as the control tells.
struct SelectedRange {
    std::int32_t State = kSelTextFailed;  // a value of WPQuery::StateSelText
    HeapBlock<char16_t> Buffer;
    std::u16string_view Text;  // in Buffer
};

// Edit and rich edit controls tell what is selected in them, and that by messages to the control.
// Rich edits are asked by numbers that mean anything to other windows: only one whose class is the
// system's counts as one.
enum class ControlKind { Other, Edit, RichEdit };
ControlKind KindOf(HWND control);

// Whether the system's own code answers for the control, which never takes long.
bool IsAnsweredBySystem(HWND control);

// Asks a control of the calling thread, whose window procedure runs within. A password is never
// taken: it counts as nothing selected, so that nobody tries to copy it either.
SelectedRange ReadSelection(HWND control, ControlKind kind);

}  // namespace vbr::hook

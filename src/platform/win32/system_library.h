// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/handle.h"
#include "platform/win32/loaded_function.h"

// Libraries that any folder but the system's could hold a stand-in for are loaded from there by
// name, when they are needed.
namespace vbr {

// From here on the process looks for libraries without a path in the system's folder alone. To be
// called first of all.
void SearchSystemFolderOnly();

// The library of the system's folder, null when it has none of that name.
UniqueLibrary LoadSystemLibrary(const wchar_t* name);

}  // namespace vbr

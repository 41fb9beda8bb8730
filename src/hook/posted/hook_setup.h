// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "exchange/install_params.h"
#include "platform/win32/handle.h"

namespace vbr::hook {

inline constexpr std::size_t kNameMax = 260;  // with the zero

// What the library must know inside a target.
struct HookSetup {
    UINT QueryMessage;
    wchar_t DataNeeded[kNameMax];
    wchar_t InterchangeArea[kNameMax];
};

// Of a block whose names are good.
HookSetup MakeSetup(const WPInstallParams& params);

// Shows the setup to the instances of the library in other programs as long as the handle lives.
UniqueHandle PublishSetup(const HookSetup& setup);

// False, with the setup as it was, when nobody publishes one.
bool ReadPublishedSetup(HookSetup& setup);

}  // namespace vbr::hook

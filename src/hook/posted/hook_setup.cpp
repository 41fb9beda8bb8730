// SPDX-License-Identifier: MIT
#include "hook/posted/hook_setup.h"

#include "platform/win32/wide.h"

namespace vbr::hook {
namespace {

constexpr wchar_t kSetupName[] = L"Local\\Vellumbridge_HookSetup";

void CopyName(const char16_t* name, wchar_t (&copy)[kNameMax]) {
    for (std::size_t i = 0; i < kNameMax - 1 && name[i]; ++i) {
        copy[i] = static_cast<wchar_t>(name[i]);
    }
}

}  // namespace

HookSetup MakeSetup(const WPInstallParams& params) {
    HookSetup setup{};
    setup.QueryMessage = params.QueryMessage;
    CopyName(params.DataNeededName, setup.DataNeeded);
    CopyName(params.InterchangeAreaName, setup.InterchangeArea);
    return setup;
}

UniqueHandle PublishSetup(const HookSetup& setup) {
    UniqueHandle mapping(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                            sizeof setup, kSetupName));
    const auto view = MapView<HookSetup>(mapping.get(), FILE_MAP_WRITE, sizeof setup);
    if (!view) {
        return nullptr;
    }
    *view = setup;
    return mapping;
}

bool ReadPublishedSetup(HookSetup& setup) {
    const UniqueHandle mapping(OpenFileMappingW(FILE_MAP_READ, FALSE, kSetupName));
    const auto view = MapView<const HookSetup>(mapping.get(), FILE_MAP_READ, sizeof setup);
    if (view) {
        setup = *view;
    }
    return static_cast<bool>(view);
}

}  // namespace vbr::hook

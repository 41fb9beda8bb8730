// SPDX-License-Identifier: MIT
#include "hook/hook_setup.h"

#include "platform/win32/wide.h"

namespace vbr::hook {
namespace {

constexpr wchar_t kSetupName[] = L"Local\\Vellumbridge_HookSetup";

bool CopyName(const char16_t* name, wchar_t (&copy)[kNameMax]) {
    if (!name || !*name) {
        return false;
    }
    for (std::size_t i = 0; i < kNameMax; ++i) {
        copy[i] = static_cast<wchar_t>(name[i]);
        if (!name[i]) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool MakeSetup(const WPInstallParams& params, HookSetup& setup) {
    setup.QueryMessage = params.QueryMessage;
    wchar_t completed[kNameMax];
    return CopyName(params.DataNeededName, setup.DataNeeded) &&
           CopyName(params.DataCompletedName, completed) &&
           CopyName(params.InterchangeAreaName, setup.InterchangeArea);
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

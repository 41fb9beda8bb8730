// SPDX-License-Identifier: MIT
#include "exchange/win32/hook_module.h"

#include "platform/win32/loaded_function.h"
#include "platform/win32/wide.h"

namespace vbr {

bool HookModule::Load() {
    if (!module_) {
        module_.reset(LoadLibraryExW(Wide(path_), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    }
    return module_ != nullptr;
}

template <typename Function>
Function HookModule::Find(const char* name) const {
    return FunctionOf<Function>(module_.get(), name);
}

std::optional<bool> HookModule::Install(WPInstallParams& params) {
    const auto install = Find<int (*)(WPInstallParams*)>("WP_Install");
    return install ? std::optional(install(&params) != 0) : std::nullopt;
}

std::optional<bool> HookModule::Uninstall() {
    const auto uninstall = Find<int (*)()>("WP_Uninstall");
    return uninstall ? std::optional(uninstall() != 0) : std::nullopt;
}

WindowHandle HookModule::AskForWindow(const char* name) const {
    const auto ask = Find<HWND (*)()>(name);
    return ask ? reinterpret_cast<WindowHandle>(ask()) : 0;
}

void HookModule::BroadcastNull() {
    DWORD recipients = BSM_ALLCOMPONENTS;
    BroadcastSystemMessageW(BSF_POSTMESSAGE | BSF_ALLOWSFW, &recipients, WM_NULL, 0, 0);
}

}  // namespace vbr

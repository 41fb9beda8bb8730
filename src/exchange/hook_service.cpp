// SPDX-License-Identifier: MIT
#include "exchange/hook_service.h"

#include "base/text.h"
#include "platform/object_names.h"

namespace vbr {
namespace {

constexpr std::uint32_t kBinary64Bit = 6;

std::u16string_view HookErrorText(std::uint32_t code) {
    switch (code) {
        case kHookSuccess:
            return u"Success";
        case kHookBadNames:
            return u"Invalid names of sync objects";
        case kHookAlreadyInstalled:
            return u"DLL service is already installed";
        case kHookNotHooked:
            return u"Cant install hook";
        case kHookNotLoaded:
            return u"Cant load DLL";
        case kHookNoInstallExport:
            return u"Cant GetProcAddress to install function of DLL";
        case kHookNoServiceEvent:
            return u"Cant create service event";
        default:
            return u"Unknow error";
    }
}

WPInstallParams MakeParams(const HookServiceStart& start) {
    WPInstallParams params;
    params.TrayWindow = start.TrayWindow;
    params.QueryMessage = start.QueryMessage;
    params.DataNeededName = kEventDataNeeded.data();
    params.DataCompletedName = kEventDataCompleted.data();
    params.InterchangeAreaName = kAreaInterchange.data();
    params.LogPath = start.LogPath.empty() ? nullptr : start.LogPath.c_str();
    params.LogAtom = start.LogAtom;
    params.AllowWaitAnswer = start.AllowWaitAnswer ? 1 : 0;
    params.Route = start.Route;
    return params;
}

}  // namespace

std::u16string DescribeHookError(std::uint32_t code) {
    return Concat(HookErrorText(code), u"\nError code: ", code);
}

std::optional<std::uint32_t> CVBRDLLService::InstallDLLService(const HookServiceStart& start) {
    if (installed_) {
        with_.Log.LogError(u"InstallDLLService_IML_32::DLL service already installed");
        return kHookAlreadyInstalled;
    }
    if (!with_.Library.Load()) {
        with_.Log.LogError(Concat(u"Cannot load DLL by ", with_.LibraryPath));
        return kHookNotLoaded;
    }
    const std::optional<std::uint32_t> failure = RunInstall(start);
    installed_ = !failure;
    if (failure) {
        serviceEvent_.reset();
        with_.Library.Unload();
    }
    return failure;
}

std::optional<std::uint32_t> CVBRDLLService::RunInstall(const HookServiceStart& start) {
    serviceEvent_ = with_.Objects.Create(u"", EventReset::Manual, ObjectAccess::Default);
    if (!serviceEvent_) {
        with_.Log.LogError(u"Cannot create service event");
        return kHookNoServiceEvent;
    }
    WPInstallParams params = MakeParams(start);
    const std::optional<bool> result = with_.Library.Install(params);
    if (!result) {
        with_.Log.LogError(u"WP_Install not found");
        return kHookNoInstallExport;
    }
    return *result ? std::nullopt : std::optional(params.ErrorCode);
}

bool CVBRDLLService::UninstallDLLService() {
    if (!installed_ || !with_.Library.Uninstall().value_or(false)) {
        return false;
    }
    with_.Library.BroadcastNull();
    installed_ = false;
    serviceEvent_->Set();
    serviceEvent_.reset();
    with_.Library.Unload();
    return true;
}

QueryStart CVBRDLLService::SendMessageToTargetWindow(std::uintptr_t wParam, WPQuery& query) {
    const WindowHandle target = GetTargetWindow();
    if (!target) {
        with_.Log.LogError(
            u"Cannot sendmessage to target window CVBRDLLService::SendMessageToTargetWindow");
        return QueryStart::Failed;
    }
    if (with_.Log.IsLogOn()) {
        LogTarget(target);
    }
    return with_.Route.Start(target, wParam, query);
}

void CVBRDLLService::LogTarget(WindowHandle target) {
    lastPid_ = with_.Windows.ThreadOf(target).Process;
    const std::u16string program = with_.Windows.ProgramPath(lastPid_);
    const std::optional<std::uint32_t> type = with_.Windows.BinaryType(program);
    const bool is64Bit = (type.value_or(0) & kBinary64Bit) == kBinary64Bit;
    with_.Log.Write(Concat(u"SendMessageToTargetWindow: HWND =", target, u" IsWindow(hwnd)=",
                           int{with_.Windows.IsWindow(target)}, u" classname=[",
                           with_.Windows.ClassName(target), u"] PID=", lastPid_, u" exe=[", program,
                           u"] GetBinaryType=[", int{type.has_value()}, u"], dwType b64=[",
                           int{is64Bit}, u"], b32=[1]"));
}

}  // namespace vbr

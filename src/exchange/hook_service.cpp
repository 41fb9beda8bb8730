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
    params.Road = start.Road;
    return params;
}

}  // namespace

std::u16string DescribeHookError(std::uint32_t code) {
    return Concat(HookErrorText(code), u"\nError code: ", code);
}

bool CVBRDLLService::InstallDLLService(const HookServiceStart& start, std::uint32_t& errorCode) {
    if (installed_) {
        errorCode = kHookAlreadyInstalled;
        log_.LogError(u"InstallDLLService_IML_32::DLL service already installed");
        return false;
    }
    if (!library_.Load()) {
        errorCode = kHookNotLoaded;
        log_.LogError(Concat(u"Cannot load DLL by ", libraryPath_));
        return false;
    }
    installed_ = RunInstall(start, errorCode);
    if (!installed_) {
        serviceEvent_.reset();
        library_.Unload();
    }
    return installed_;
}

bool CVBRDLLService::RunInstall(const HookServiceStart& start, std::uint32_t& errorCode) {
    serviceEvent_ = objects_.Create(u"", EventReset::Manual, ObjectAccess::Default);
    if (!serviceEvent_) {
        errorCode = kHookNoServiceEvent;
        log_.LogError(u"Cannot create service event");
        return false;
    }
    WPInstallParams params = MakeParams(start);
    const std::optional<bool> result = library_.Install(params);
    if (!result) {
        errorCode = kHookNoInstallExport;
        log_.LogError(u"WP_Install not found");
        return false;
    }
    errorCode = params.ErrorCode;
    return *result;
}

bool CVBRDLLService::UninstallDLLService() {
    if (!installed_ || !library_.Uninstall().value_or(false)) {
        return false;
    }
    library_.BroadcastNull();
    installed_ = false;
    serviceEvent_->Set();
    serviceEvent_.reset();
    library_.Unload();
    return true;
}

QueryStart CVBRDLLService::SendMessageToTargetWindow(std::uintptr_t wParam, WPQuery& query) {
    const WindowHandle target = GetTargetWindow();
    if (!target) {
        log_.LogError(
            u"Cannot sendmessage to target window CVBRDLLService::SendMessageToTargetWindow");
        return QueryStart::Failed;
    }
    if (log_.IsLogOn()) {
        LogTarget(target);
    }
    return road_.Start(target, wParam, query);
}

void CVBRDLLService::LogTarget(WindowHandle target) {
    lastPid_ = windows_.ThreadOf(target).Process;
    const std::u16string program = windows_.ProgramPath(lastPid_);
    const std::optional<std::uint32_t> type = windows_.BinaryType(program);
    const bool is64Bit = (type.value_or(0) & kBinary64Bit) == kBinary64Bit;
    log_.Write(Concat(u"SendMessageToTargetWindow: HWND =", target, u" IsWindow(hwnd)=",
                      int{windows_.IsWindow(target)}, u" classname=[", windows_.ClassName(target),
                      u"] PID=", lastPid_, u" exe=[", program, u"] GetBinaryType=[",
                      int{type.has_value()}, u"], dwType b64=[", int{is64Bit}, u"], b32=[1]"));
}

}  // namespace vbr

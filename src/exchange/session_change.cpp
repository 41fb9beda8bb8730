// SPDX-License-Identifier: MIT
#include "exchange/session_change.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace vbr {
namespace {

struct SessionReason {
    std::uint32_t Reason;
    std::u16string_view Name;
    int Direction;
};

constexpr SessionReason kReasons[] = {
    {1, u"WTS_CONSOLE_CONNECT", 1},        {2, u"WTS_CONSOLE_DISCONNECT", -1},
    {3, u"WTS_REMOTE_CONNECT", 0},         {4, u"WTS_REMOTE_DISCONNECT", 0},
    {5, u"WTS_SESSION_LOGON", 1},          {6, u"WTS_SESSION_LOGOFF", -1},
    {7, u"WTS_SESSION_LOCK", -1},          {8, u"WTS_SESSION_UNLOCK", 1},
    {9, u"WTS_SESSION_REMOTE_CONTROL", 0},
};

const SessionReason* Find(std::uint32_t reason) {
    const auto* row =
        std::find_if(std::begin(kReasons), std::end(kReasons),
                     [reason](const SessionReason& known) { return known.Reason == reason; });
    return row == std::end(kReasons) ? nullptr : row;
}

}  // namespace

std::u16string WTSSessionChangeReason_2_Str(std::uint32_t reason) {
    if (const SessionReason* known = Find(reason)) {
        return std::u16string(known->Name);
    }
    return Concat(u"Оппа-ньки! Что за нафиг WTSSessionChangeReason_2_Str: wReason=", reason);
}

int SessionDirection(std::uint32_t reason) {
    const SessionReason* known = Find(reason);
    return known ? known->Direction : 0;
}

void SessionWatch::OnWmWTSSessionChange(std::uint32_t reason, std::uint32_t sessionId) {
    const LogSection section(log_, u"CVBRTrayWnd::OnWmWTSSessionChange");
    log_.Write(Concat(u"OnWmWTSSessionChange reason=", WTSSessionChangeReason_2_Str(reason),
                      u" sessionId=", static_cast<std::int32_t>(sessionId)));
    const int direction = SessionDirection(reason);
    log_.Write(Concat(u"OnWmWTSSessionChange WTS_reason=", direction));
    if (direction < 0 && actions_.IsSpyRunning()) {
        spyOffBySession_ = true;
        const bool stopped = actions_.StopSpy();
        log_.Write(Concat(u"OnWmWTSSessionChange: Clipboard Spy is uninstalled=", int{stopped}));
        actions_.OnSpyChanged();
    } else if (direction > 0 && std::exchange(spyOffBySession_, false)) {
        const bool started = actions_.StartSpy();
        log_.Write(Concat(u"OnWmWTSSessionChange: Clipboard Spy is installed=", int{started}));
        actions_.OnSpyChanged();
    }
    actions_.Announce(reason);
}

}  // namespace vbr

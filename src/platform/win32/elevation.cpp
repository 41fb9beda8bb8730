// SPDX-License-Identifier: MIT
#include "platform/win32/elevation.h"

#include "platform/win32/windows.h"

namespace vbr {

bool IsProcessElevated() {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    alignas(SID) BYTE sid[SECURITY_MAX_SID_SIZE];
    if (!InitializeSid(sid, &authority, 2)) {
        return false;
    }
    *GetSidSubAuthority(sid, 0) = SECURITY_BUILTIN_DOMAIN_RID;
    *GetSidSubAuthority(sid, 1) = DOMAIN_ALIAS_RID_ADMINS;
    BOOL member = FALSE;
    return CheckTokenMembership(nullptr, sid, &member) && member;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "platform/win32/world_security.h"

#include <aclapi.h>

#include "platform/win32/handle.h"

namespace vbr {
namespace {

constexpr DWORD kFullAccess = 0x1F01FF;

class WorldDescriptor {
  public:
    WorldDescriptor() {
        SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
        if (!InitializeSid(Sid(), &world, 1)) {
            return;
        }
        *GetSidSubAuthority(Sid(), 0) = SECURITY_WORLD_RID;
        EXPLICIT_ACCESSW entry{};
        entry.grfAccessPermissions = kFullAccess;
        entry.grfAccessMode = SET_ACCESS;
        entry.grfInheritance = NO_INHERITANCE;
        entry.Trustee.TrusteeForm = TRUSTEE_IS_SID;
        entry.Trustee.TrusteeType = TRUSTEE_IS_WELL_KNOWN_GROUP;
        entry.Trustee.ptstrName = static_cast<wchar_t*>(Sid());
        ACL* acl = nullptr;
        if (SetEntriesInAclW(1, &entry, nullptr, &acl) != ERROR_SUCCESS) {
            return;
        }
        acl_.reset(acl);
        valid_ = InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
                 SetSecurityDescriptorDacl(&descriptor_, TRUE, acl, FALSE);
        attributes_ = {sizeof attributes_, &descriptor_, FALSE};
    }

    SECURITY_ATTRIBUTES* Attributes() { return valid_ ? &attributes_ : nullptr; }

  private:
    PSID Sid() { return sid_; }

    alignas(SID) BYTE sid_[SECURITY_MAX_SID_SIZE]{};
    UniqueLocal<ACL> acl_;
    SECURITY_DESCRIPTOR descriptor_{};
    SECURITY_ATTRIBUTES attributes_{};
    bool valid_ = false;
};

}  // namespace

SECURITY_ATTRIBUTES* WorldSecurity() {
    static WorldDescriptor descriptor;
    return descriptor.Attributes();
}

}  // namespace vbr

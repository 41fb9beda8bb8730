// SPDX-License-Identifier: MIT
#pragma once

#include "platform/profile_store.h"

namespace vbr {

// INI files through the profile functions of Windows.
class WinProfileStore : public ProfileStore {
  public:
    std::optional<std::u16string> ReadString(const std::filesystem::path& file,
                                             std::u16string_view section,
                                             std::u16string_view key) const override;
};

}  // namespace vbr

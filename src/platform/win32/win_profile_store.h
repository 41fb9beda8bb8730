// SPDX-License-Identifier: MIT
#pragma once

#include "platform/profile_text_store.h"
#include "platform/win32/win_file_store.h"

namespace vbr {

// INI files through the profile functions of Windows. A file that they would misread or damage, one
// with a UTF-8 mark or with zero bytes, goes through ProfileText instead.
class WinProfileStore : public ProfileStore {
  public:
    ProfileValue Read(const std::filesystem::path& file, std::u16string_view section,
                      std::u16string_view key) const override;
    bool WriteString(const std::filesystem::path& file, std::u16string_view section,
                     std::u16string_view key, std::u16string_view value) override;

  private:
    WinFileStore files_;
    ProfileTextStore texts_{files_};
};

}  // namespace vbr

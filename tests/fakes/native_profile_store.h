// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "fakes/native_file_store.h"
#include "platform/profile_text_store.h"

namespace vbr {

// INI files of the machine that runs the tests. It treats them as the real calls do: both pass the
// cases in fakes/profile_cases.h.
class NativeProfileStore : public ProfileTextStore {
  public:
    NativeProfileStore() : ProfileTextStore(files_) {}

    // Asked at each access: whether another program holds the file at that moment.
    std::function<bool(const std::filesystem::path&)> IsHeld = [](const auto&) { return false; };

    ProfileValue Read(const std::filesystem::path& file, std::u16string_view section,
                      std::u16string_view key) const override {
        return IsHeld(file) ? ProfileValue{ProfileRead::Failed, {}}
                            : ProfileTextStore::Read(file, section, key);
    }
    bool WriteString(const std::filesystem::path& file, std::u16string_view section,
                     std::u16string_view key, std::u16string_view value) override {
        return !IsHeld(file) && ProfileTextStore::WriteString(file, section, key, value);
    }

  private:
    NativeFileStore files_;
};

}  // namespace vbr

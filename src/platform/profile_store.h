// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// Values in INI files, with the semantics of the platform's profile functions.
class ProfileStore {
  public:
    virtual ~ProfileStore() = default;

    // The value, trimmed and without enclosing quotes; nothing when the key isn't there.
    virtual std::optional<std::u16string> ReadString(const std::filesystem::path& file,
                                                     std::u16string_view section,
                                                     std::u16string_view key) const = 0;
};

}  // namespace vbr

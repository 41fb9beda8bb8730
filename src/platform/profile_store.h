// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/profile_text.h"

namespace vbr {

// Values in INI files, with the semantics of the platform's profile functions.
class ProfileStore {
  public:
    virtual ~ProfileStore() = default;

    // The value, trimmed and without enclosing quotes; nothing when the key isn't there or the
    // file can't be read.
    virtual std::optional<std::u16string> ReadString(const std::filesystem::path& file,
                                                     std::u16string_view section,
                                                     std::u16string_view key) const = 0;

    // Replaces or adds the key; the file is made when it is missing. False when that fails; the
    // file is then as it was.
    virtual bool WriteString(const std::filesystem::path& file, std::u16string_view section,
                             std::u16string_view key, std::u16string_view value) = 0;

    // Bytes in the form of the platform's struct values. Reading fails, with nothing changed,
    // unless the key holds exactly that many bytes and their right sum.
    bool ReadStruct(const std::filesystem::path& file, std::u16string_view section,
                    std::u16string_view key, std::span<std::uint8_t> bytes) const {
        const std::optional<std::u16string> text = ReadString(file, section, key);
        return text && DecodeProfileStruct(*text, bytes);
    }
    bool WriteStruct(const std::filesystem::path& file, std::u16string_view section,
                     std::u16string_view key, std::span<const std::uint8_t> bytes) {
        return WriteString(file, section, key, EncodeProfileStruct(bytes));
    }
};

}  // namespace vbr

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

enum class ProfileRead {
    Found,
    Missing,  // there is no such key, or no file
    Failed,   // the file is there and can't be read, since another program holds it, say
};

// What became of reading a key; the text is that of a found one.
struct ProfileValue {
    ProfileRead Result = ProfileRead::Missing;
    std::u16string Text;
};

// Values in INI files, with the semantics of the platform's profile functions.
class ProfileStore {
  public:
    virtual ~ProfileStore() = default;

    // The value, trimmed and without enclosing quotes.
    virtual ProfileValue Read(const std::filesystem::path& file, std::u16string_view section,
                              std::u16string_view key) const = 0;

    // For who doesn't mind why there is no value.
    std::optional<std::u16string> ReadString(const std::filesystem::path& file,
                                             std::u16string_view section,
                                             std::u16string_view key) const {
        ProfileValue value = Read(file, section, key);
        return value.Result == ProfileRead::Found ? std::optional(std::move(value.Text))
                                                  : std::nullopt;
    }

    // Replaces or adds the key; the file is made when it is missing. False when that fails, as it
    // does with a file that can't be read; the file is then as it was.
    virtual bool WriteString(const std::filesystem::path& file, std::u16string_view section,
                             std::u16string_view key, std::u16string_view value) = 0;

    // Bytes in the form of the platform's struct values, which DecodeProfileStruct reads.
    bool WriteStruct(const std::filesystem::path& file, std::u16string_view section,
                     std::u16string_view key, std::span<const std::uint8_t> bytes) {
        return WriteString(file, section, key, EncodeProfileStruct(bytes));
    }
};

}  // namespace vbr

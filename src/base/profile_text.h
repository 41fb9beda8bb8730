// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vbr {

// The text of an INI file, with the semantics of the platform's profile functions. Names of
// sections and keys match in any letter case, and the first of several equal ones wins. What a
// change does not touch stays as it stands, byte by byte.
//
// Encodings: UTF-16 LE with its mark, also for a new file; UTF-8 with its mark. A file without a
// mark is taken as UTF-8 when its bytes are valid UTF-8, else as Latin-1, in which a character
// beyond it is written '?'.
class ProfileText {
  public:
    explicit ProfileText(std::string_view bytes);

    // The value, trimmed and without one pair of enclosing quotes; nothing when the key isn't
    // there.
    std::optional<std::u16string> Get(std::u16string_view section, std::u16string_view key) const;

    // Replaces the value, or adds the key at the end of its section, or the section at the end of
    // the file. False, and no change, for a value that holds a line break or a zero character.
    bool Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);

    // Takes the key's line away; false when there is none.
    bool Delete(std::u16string_view section, std::u16string_view key);

    // The whole file in the encoding that it came in.
    std::string Bytes() const;

  private:
    enum class Encoding { Utf8, Latin1, Utf16 };
    struct Place;

    Place Find(std::u16string_view section, std::u16string_view key) const;
    std::u16string_view LineBreak() const;

    std::string mark_;
    Encoding encoding_ = Encoding::Utf8;
    std::u16string text_;
    std::string halfUnit_;  // the odd byte at the end of a damaged UTF-16 file
};

// Whether an INI file can hold the text as one value.
bool IsProfileValue(std::u16string_view value);

// The value in quotes, if reading would take blanks or quotes at its ends away.
std::u16string QuotedProfileValue(std::u16string_view value);

// Bytes as the profile functions store them: hexadecimal, then one byte that is their sum.
std::u16string EncodeProfileStruct(std::span<const std::uint8_t> bytes);

// Fills `bytes`; false, with nothing changed, when the length, a digit or the sum is wrong.
bool DecodeProfileStruct(std::u16string_view text, std::span<std::uint8_t> bytes);

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/text.h"
#include "platform/log.h"

// What the fuzz targets share.
namespace vbr {

// Ends the program, which is a finding, when the condition doesn't hold.
inline void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

class NoLog : public Log {
  public:
    void Write(std::u16string_view) override {}
    void WriteBare(std::u16string_view) override {}
    void SetLogSection(std::u16string_view) override {}
};

inline std::string_view InputText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The input's parts between line feeds; the last one has what follows, line feeds cut off.
template <std::size_t Count>
std::array<std::u16string, Count> InputParts(std::string_view input) {
    std::array<std::u16string, Count> parts;
    for (std::u16string& part : parts) {
        const std::size_t end = input.find('\n');
        part = Utf8ToUtf16(input.substr(0, end));
        input = end == input.npos ? std::string_view() : input.substr(end + 1);
    }
    return parts;
}

}  // namespace vbr

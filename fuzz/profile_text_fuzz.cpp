// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/profile_text.h"
#include "fuzzing.h"

namespace {

// Any file gives back its bytes, and the first part's values. A value that is set is there, no
// other is changed, and one that is deleted is gone.
void CheckFile(std::string_view bytes, const std::array<std::u16string, 3>& parts) {
    vbr::ProfileText text(bytes);
    if (!bytes.empty()) {
        vbr::Require(text.Bytes() == bytes);
    }
    constexpr std::u16string_view kSection = u"Settings";
    const auto other = text.Get(u"Other", u"Key");
    const auto before = text.Get(kSection, u"Kept");
    const bool isSet = text.Set(kSection, u"HotKey", parts[0]);
    vbr::Require(isSet == vbr::IsProfileValue(parts[0]));
    vbr::Require(text.Get(u"Other", u"Key") == other && text.Get(kSection, u"Kept") == before);
    vbr::ProfileText once(text.Bytes());
    if (isSet) {
        vbr::Require(text.Get(kSection, u"HotKey").has_value());
        text.Set(kSection, u"HotKey", *text.Get(kSection, u"HotKey"));
        // Quotes and blanks around a value go with each reading, a file's encoding may lack a
        // character: from the second writing on nothing changes any more.
        const std::string plain = once.Bytes();
        vbr::Require(vbr::ProfileText(plain).Bytes() == plain);
        while (text.Delete(kSection, u"HotKey")) {
        }
        vbr::Require(!text.Get(kSection, u"HotKey"));
        vbr::Require(text.Get(u"Other", u"Key") == other && text.Get(kSection, u"Kept") == before);
    }
}

void CheckStruct(const std::u16string& text) {
    std::array<std::uint8_t, 4> bytes{1, 2, 3, 4};
    const std::array<std::uint8_t, 4> untouched = bytes;
    const bool isRead = vbr::DecodeProfileStruct(text, bytes);
    vbr::Require(isRead ? vbr::ToUpper(text) == vbr::EncodeProfileStruct(bytes)
                        : bytes == untouched);
}

}  // namespace

// A value, then the INI file behind the first line feed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = vbr::InputText(data, size);
    const std::size_t end = input.find('\n');
    CheckFile(end == input.npos ? std::string_view() : input.substr(end + 1),
              vbr::InputParts<3>(input));
    CheckStruct(vbr::Utf8ToUtf16(input.substr(0, end)));
    return 0;
}

// SPDX-License-Identifier: MIT
#include "base/xml_references.h"

namespace vbr {
namespace {

// A byte that UTF-8 never holds.
constexpr char kAmpersandMark = '\xFF';

}  // namespace

std::string MarkReferences(std::string text) {
    for (std::size_t at = text.find("&#x"); at != text.npos; at = text.find("&#x", at + 1)) {
        text[at] = kAmpersandMark;
    }
    return text;
}

std::string UnmarkReferences(const std::string& printed) {
    std::string out;
    out.reserve(printed.size());
    for (const char c : printed) {
        if (c == kAmpersandMark) {
            out += "&amp;";
        } else {
            out += c;
        }
    }
    return out;
}

}  // namespace vbr

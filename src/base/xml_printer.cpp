// SPDX-License-Identifier: MIT
#include "base/xml_printer.h"

#include <memory>

#include "base/text.h"

namespace vbr {
namespace {

// A byte that UTF-8 never holds. It takes an ampersand out of the library's sight.
constexpr char kAmpersandMark = '\xFF';

std::string MarkReferences(std::string text) {
    for (std::size_t at = text.find("&#x"); at != text.npos; at = text.find("&#x", at + 1)) {
        text[at] = kAmpersandMark;
    }
    return text;
}

std::string EscapeMarks(const std::string& printed) {
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

}  // namespace

std::string EscapeXmlText(std::u16string_view text) {
    std::string escaped;
    TiXmlBase::EncodeString(MarkReferences(Utf16ToUtf8(text)), &escaped);
    return EscapeMarks(escaped);
}

void AppendXmlText(TiXmlElement& element, std::u16string_view text) {
    element.LinkEndChild(new TiXmlText(MarkReferences(Utf16ToUtf8(text))));
}

void AppendXmlElement(TiXmlElement& parent, const char* name, std::u16string_view text) {
    auto element = std::make_unique<TiXmlElement>(name);
    AppendXmlText(*element, text);
    parent.LinkEndChild(element.release());
}

std::string PrintXml(const TiXmlDeclaration& declaration, const TiXmlElement& root) {
    TiXmlPrinter printer;
    printer.SetIndent("    ");
    printer.SetLineBreak("\r\n");
    const bool printed = declaration.Accept(&printer) && root.Accept(&printer);
    return printed ? EscapeMarks(printer.Str()) : std::string();
}

}  // namespace vbr

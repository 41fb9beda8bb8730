// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Places in the bytes of a document that the XML library accepts, found as the library finds them.
namespace vbr {

// An element's start tag.
struct XmlTag {
    std::size_t Begin = 0;  // at its '<'
    std::size_t NameBegin = 0;
    std::size_t NameEnd = 0;
    std::size_t End = 0;   // behind its '>'
    bool IsEmpty = false;  // it ends in "/>", and no end tag follows
};

// The first element with that name at the document's top level.
std::optional<XmlTag> FindXmlRoot(std::string_view xml, std::string_view name);
// The first child of the element with that name.
std::optional<XmlTag> FindXmlChild(std::string_view xml, const XmlTag& parent,
                                   std::string_view name);
// All between the element's start tag and its end tag.
std::string_view XmlContent(std::string_view xml, const XmlTag& tag);

// Changes attributes and child texts of one element. Every other byte of the document stays.
class XmlEdit {
  public:
    // `element` is of that document.
    XmlEdit(std::string xml, const XmlTag& element) : xml_(std::move(xml)), element_(element) {}

    const std::string& Xml() const { return xml_; }

    // `value` holds nothing that would have to be escaped.
    void SetAttribute(std::string_view name, std::string_view value);
    void RemoveAttribute(std::string_view name);

    // The first child of that name, or a new one in front, gives this text to a reader. What stands
    // in it behind its text stays, unless the new text is blank and would get lost beside that.
    void SetText(std::string_view child, std::u16string_view text);

  private:
    void Splice(std::size_t at, std::size_t count, std::string_view bytes);
    void AddChild(std::string_view name, const std::string& content);
    void FillEmpty(const XmlTag& tag, std::string_view content);

    std::string xml_;
    XmlTag element_;
};

}  // namespace vbr

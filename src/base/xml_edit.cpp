// SPDX-License-Identifier: MIT
#include "base/xml_edit.h"

#include <algorithm>

#include "base/text.h"
#include "base/xml_guard.h"
#include "base/xml_printer.h"
#include "base/xml_scan.h"

namespace vbr {
namespace {

struct Attribute {
    std::size_t Begin = 0;
    std::string_view Name;
    std::size_t ValueBegin = 0;
    std::size_t ValueEnd = 0;  // at the closing quote, if there is one
    bool IsQuoted = false;

    std::size_t End() const { return ValueEnd + (IsQuoted ? 1 : 0); }
};

std::string_view NameOf(std::string_view xml, const XmlTag& tag) {
    return xml.substr(tag.NameBegin, tag.NameEnd - tag.NameBegin);
}

XmlTag TagAt(std::string_view xml, std::size_t at) {
    std::size_t attributes = 0;
    const std::size_t end = SkipXmlTag(xml, at, attributes);
    const std::size_t name = SkipXmlBlanks(xml, at + 1);
    const std::size_t nameEnd = xml.find_first_of(" \t\r\n\v\f/>", name);
    return {.Begin = at,
            .NameBegin = name,
            .NameEnd = std::min(nameEnd, end),
            .End = end,
            .IsEmpty = xml.substr(at, end - at).ends_with("/>")};
}

// The first element with that name among those at and behind `at`. Without one, `at` moves to the
// end tag of the element around them. An element is no deeper than the library was let at.
std::optional<XmlTag> FindAmong(std::string_view xml, std::string_view name, std::size_t& at) {
    at = std::min(xml.find('<', at), xml.size());
    while (at < xml.size() && !xml.substr(at).starts_with("</")) {
        const std::size_t behind = SkipXmlOpaque(xml, at);
        if (behind != at) {
            at = behind;
        } else if (!BeginsXmlElement(xml, at)) {
            at = BehindXml(xml, ">", at);
        } else {
            const XmlTag tag = TagAt(xml, at);
            if (NameOf(xml, tag) == name) {
                return tag;
            }
            at = tag.End;
            if (!tag.IsEmpty) {
                FindAmong(xml, {}, at);
                at = BehindXml(xml, ">", at);
            }
        }
        at = std::min(xml.find('<', at), xml.size());
    }
    return std::nullopt;
}

std::size_t ContentEnd(std::string_view xml, const XmlTag& tag) {
    std::size_t at = tag.End;
    if (!tag.IsEmpty) {
        FindAmong(xml, {}, at);
    }
    return at;
}

// The first attribute at or behind `from`. `tag` is the document up to the tag's end.
std::optional<Attribute> NextAttribute(std::string_view tag, std::size_t from) {
    Attribute found;
    found.Begin = SkipXmlBlanks(tag, from);
    const std::size_t nameEnd = tag.find_first_of("= \t\r\n\v\f", found.Begin);
    if (nameEnd == tag.npos || tag[found.Begin] == '/' || tag[found.Begin] == '>') {
        return std::nullopt;
    }
    found.Name = tag.substr(found.Begin, nameEnd - found.Begin);
    found.ValueBegin = SkipXmlBlanks(tag, BehindXml(tag, "=", nameEnd));
    if (found.ValueBegin == tag.size()) {
        return std::nullopt;
    }
    const char quote = tag[found.ValueBegin];
    found.IsQuoted = quote == '"' || quote == '\'';
    found.ValueBegin += found.IsQuoted ? 1 : 0;
    found.ValueEnd = found.IsQuoted ? tag.find(quote, found.ValueBegin)
                                    : tag.find_first_of(" \t\r\n\v\f/>", found.ValueBegin);
    return found.ValueEnd == tag.npos ? std::nullopt : std::optional(found);
}

// The attribute with that name, or the last one of all.
std::optional<Attribute> FindAttribute(std::string_view xml, const XmlTag& tag,
                                       std::string_view name) {
    const std::string_view whole = xml.substr(0, tag.End);
    std::optional<Attribute> last;
    std::optional<Attribute> next = NextAttribute(whole, tag.NameEnd);
    while (next && (!last || last->Name != name)) {
        last = next;
        next = NextAttribute(whole, last->End());
    }
    return last;
}

// The end of the text that a reader takes from the content that begins at `from`, and of what would
// join a text in its place.
std::size_t TextEnd(std::string_view xml, std::size_t from) {
    const std::size_t at = std::min(xml.find('<', from), xml.size());
    const bool isData = SkipXmlBlanks(xml, from) == at && xml.substr(at).starts_with("<![CDATA[");
    return isData ? std::min(xml.find('<', SkipXmlOpaque(xml, at)), xml.size()) : at;
}

}  // namespace

std::optional<XmlTag> FindXmlRoot(std::string_view xml, std::string_view name) {
    std::size_t at = xml.size() - SkipXmlDeclarations(xml).size();
    std::optional<XmlTag> tag = FindAmong(xml, name, at);
    while (!tag && at < xml.size()) {
        // An end tag without a start is passed over.
        at = BehindXml(xml, ">", at);
        tag = FindAmong(xml, name, at);
    }
    return tag;
}

std::optional<XmlTag> FindXmlChild(std::string_view xml, const XmlTag& parent,
                                   std::string_view name) {
    std::size_t at = parent.End;
    return parent.IsEmpty ? std::nullopt : FindAmong(xml, name, at);
}

std::string_view XmlContent(std::string_view xml, const XmlTag& tag) {
    return xml.substr(tag.End, ContentEnd(xml, tag) - tag.End);
}

void XmlEdit::Splice(std::size_t at, std::size_t count, std::string_view bytes) {
    xml_.replace(at, count, bytes);
    element_ = TagAt(xml_, element_.Begin);
}

void XmlEdit::SetAttribute(std::string_view name, std::string_view value) {
    const std::optional<Attribute> found = FindAttribute(xml_, element_, name);
    if (found && found->Name == name) {
        Splice(found->ValueBegin, found->ValueEnd - found->ValueBegin, value);
        return;
    }
    // Behind a value without quotes it could be taken for a part of it.
    const std::size_t at = found && found->IsQuoted ? found->End() : element_.NameEnd;
    Splice(at, 0, std::string(" ").append(name).append("=\"").append(value).append("\""));
}

void XmlEdit::RemoveAttribute(std::string_view name) {
    const std::optional<Attribute> found = FindAttribute(xml_, element_, name);
    if (!found || found->Name != name) {
        return;
    }
    // The blanks before it part its neighbours if there are none behind it.
    const bool parted = xml_.find_first_of(" \t\r\n\v\f/>", found->End()) == found->End();
    const std::size_t begin =
        parted ? xml_.find_last_not_of(kXmlWhiteSpace, found->Begin - 1) + 1 : found->Begin;
    Splice(begin, found->End() - begin, {});
}

void XmlEdit::SetText(std::string_view child, std::u16string_view text) {
    const std::string content = EscapeXmlText(text);
    const std::optional<XmlTag> tag = FindXmlChild(xml_, element_, child);
    if (!tag) {
        AddChild(child, content);
    } else if (tag->IsEmpty) {
        FillEmpty(*tag, content);
    } else {
        const bool isBlank = Trim(text, kXmlBlankText).empty();
        const std::size_t end = isBlank ? ContentEnd(xml_, *tag) : TextEnd(xml_, tag->End);
        Splice(tag->End, end - tag->End, content);
    }
}

void XmlEdit::AddChild(std::string_view name, const std::string& content) {
    const std::string tag = std::string(name).append(">");
    const std::string child = "<" + tag + content + "</" + tag;
    if (element_.IsEmpty) {
        FillEmpty(element_, child);
        return;
    }
    // In a line of its own if the first child stands so. In front no text of the element changes.
    const std::size_t first = xml_.find_first_not_of(kXmlWhiteSpace, element_.End);
    const std::string lead = xml_.substr(element_.End, first - element_.End);
    Splice(element_.End, 0, lead + child);
}

void XmlEdit::FillEmpty(const XmlTag& tag, std::string_view content) {
    const std::string endTag = std::string("</").append(NameOf(xml_, tag)).append(">");
    const std::size_t begin = xml_.find_last_not_of(kXmlWhiteSpace, tag.End - 3) + 1;
    Splice(begin, tag.End - begin, std::string(">").append(content).append(endTag));
}

}  // namespace vbr

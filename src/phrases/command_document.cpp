// SPDX-License-Identifier: MIT
#include "phrases/command_document.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/text.h"
#include "base/xml_edit.h"
#include "base/xml_guard.h"
#include "base/xml_printer.h"
#include "base/xml_scan.h"

namespace vbr {
namespace {

constexpr const char* kRootName = "VBRCommand";

// Files of old editors have their texts escaped twice, so the reader decodes twice. With this mark
// it decodes once, and a text can hold what looks like a reference.
constexpr const char* kExactText = "ExactText";

constexpr std::pair<std::u16string_view, std::u16string_view> kEscapedTwice[] = {
    {u"&lt;", u"<"}, {u"&gt;", u">"}, {u"&quote;", u"\""}};

// Ok, NotXml, or TooMuchMarkup for what the parser must not be let at.
CommandReadResult ParseDocument(TiXmlDocument& document, const std::string& xml) {
    const std::string_view body = SkipXmlDeclarations(xml);
    if (!IsWithinXmlLimits(body)) {
        return CommandReadResult::TooMuchMarkup;
    }
    KeepXmlWhiteSpace();
    // The body is the string's end, so it is terminated as the parser needs it.
    const std::string escaped = HasStrayAmpersand(body) ? EscapeStrayAmpersands(body) : "";
    document.Parse(escaped.empty() ? body.data() : escaped.c_str(), nullptr, TIXML_ENCODING_UTF8);
    return document.Error() ? CommandReadResult::NotXml : CommandReadResult::Ok;
}

std::int64_t NumberAttribute(const TiXmlElement& element, const char* name) {
    const char* value = element.Attribute(name);
    return value ? ParseDecimal(std::string_view(value)) : 0;
}

// "year|month|day|hour|minute|second"; a missing or unreadable field is 0.
SystemTime ParseDateUsage(std::string_view text) {
    std::array<std::uint16_t, 6> fields{};
    for (std::uint16_t& field : fields) {
        field = static_cast<std::uint16_t>(ParseDecimal(text));
        const std::size_t bar = text.find('|');
        text = bar == text.npos ? std::string_view() : text.substr(bar + 1);
    }
    SystemTime time;
    time.Year = fields[0];
    time.Month = fields[1];
    time.Day = fields[2];
    time.Hour = fields[3];
    time.Minute = fields[4];
    time.Second = fields[5];
    return time;
}

std::string FormatDateUsage(const SystemTime& time) {
    return Utf16ToUtf8(Concat(time.Year, u"|", time.Month, u"|", time.Day, u"|", time.Hour, u"|",
                              time.Minute, u"|", time.Second));
}

const TiXmlText* TextOf(const TiXmlElement& element) {
    return element.FirstChild() ? element.FirstChild()->ToText() : nullptr;
}

// The parser drops a text of nothing but white space. This reads such a text from the source, so
// that a phrase made of a blank or a line break isn't lost when it is saved.
std::string BlankText(std::string_view xml, std::string_view name) {
    const std::optional<XmlTag> root = FindXmlRoot(xml, kRootName);
    const std::optional<XmlTag> tag = root ? FindXmlChild(xml, *root, name) : std::nullopt;
    const std::string_view content = tag ? XmlContent(xml, *tag) : std::string_view();
    if (content.empty()) {
        return {};
    }
    TiXmlDocument document;
    const CommandReadResult result =
        ParseDocument(document, "<t>." + std::string(content) + ".</t>");
    const TiXmlText* text = document.RootElement() ? TextOf(*document.RootElement()) : nullptr;
    if (result != CommandReadResult::Ok || !text || text->NextSibling()) {
        return {};
    }
    const std::string& value = text->ValueStr();
    return value.substr(1, value.size() - 2);
}

std::u16string DecodeText(std::string_view utf8, bool exact) {
    std::u16string text = Utf8ToUtf16(utf8);
    if (!exact) {
        for (const auto& [reference, character] : kEscapedTwice) {
            ReplaceAll(text, reference, character);
        }
    }
    return text;
}

// Whether the text comes back from a file only if that has the mark.
bool NeedsExactText(const CommandFields& fields) {
    return std::any_of(fields.Texts.begin(), fields.Texts.end(), [](const auto& text) {
        return std::any_of(std::begin(kEscapedTwice), std::end(kEscapedTwice),
                           [&text](const auto& pair) {
                               return FindText(text.second, pair.first) != text.second.npos;
                           });
    });
}

bool IsExactText(const TiXmlElement& root) {
    return NumberAttribute(root, kExactText) != 0;
}

void ReadTitle(VBRCommand& record, const TiXmlElement& root, bool exact) {
    const TiXmlElement* title = root.FirstChildElement("MenuName");
    if (const TiXmlText* text = title ? TextOf(*title) : nullptr) {
        record.Text = CutUnits(DecodeText(text->ValueStr(), exact), kMenuNameMax);
    }
}

std::u16string ElementText(const TiXmlElement& root, const char* name, std::string_view xml,
                           bool exact) {
    const TiXmlElement* element = root.FirstChildElement(name);
    if (!element) {
        return {};
    }
    const TiXmlText* text = TextOf(*element);
    return DecodeText(text ? text->ValueStr() : BlankText(xml, name), exact);
}

void ReadTextsBehindTitle(VBRCommand& record, const TiXmlElement& root, std::string_view xml,
                          bool exact) {
    record.DataType = DataTypeFromText(ElementText(root, "DataType", xml, exact));
    record.Cmd = ElementText(root, "Cmd", xml, exact);
    record.ToolTipText = CutUnits(ElementText(root, "Hint", xml, exact), kHintMax);
}

void ReadAttributes(VBRCommand& record, const TiXmlElement& root) {
    record.Enabled = NumberAttribute(root, "Excluded") == 0;
    record.SortID = static_cast<std::uint32_t>(NumberAttribute(root, "SortID"));
    record.UsageCount = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        NumberAttribute(root, "UsageCount"), 0, std::numeric_limits<std::int32_t>::max()));
    if (const char* date = root.Attribute("DateUsage")) {
        const SystemTime time = ParseDateUsage(date);
        if (time.Year != 0) {
            record.SetDateUsage(time);
        }
    }
    record.DisabledIsNoHasSelection = NumberAttribute(root, "DisabledIsNoHasSelection") != 0;
    record.UseTitleOnly = NumberAttribute(root, "UseTitleOnly") != 0;
    record.FlagsMenu = static_cast<std::uint32_t>(NumberAttribute(root, "FlagsMenu"));
}

std::string Number(std::int64_t value) {
    return Utf16ToUtf8(ToDecimal(value));
}

// The root element; null for what is no phrase file, with the reason in `result`.
const TiXmlElement* ParseRoot(TiXmlDocument& document, const std::string& xml,
                              CommandReadResult& result) {
    if (!IsValidUtf8(xml)) {
        result = CommandReadResult::NotUtf8;
        return nullptr;
    }
    // A large file of another kind isn't worth the parser's time.
    const bool mayBe = xml.find(std::string("<") + kRootName) != xml.npos;
    result = mayBe ? ParseDocument(document, xml) : CommandReadResult::NotXml;
    const TiXmlElement* root = document.FirstChildElement(kRootName);
    if (result == CommandReadResult::Ok && !root) {
        result = CommandReadResult::NotXml;
    }
    return result == CommandReadResult::Ok ? root : nullptr;
}

}  // namespace

std::u16string_view DescribeReadResult(CommandReadResult result) {
    switch (result) {
        case CommandReadResult::Ok:
            return u"";
        case CommandReadResult::NoTitle:
            return u"it has no MenuName";
        case CommandReadResult::Unreadable:
            return u"it is empty, can't be opened or can't be read";
        case CommandReadResult::NotUtf8:
            return u"it is not UTF-8";
        case CommandReadResult::NotXml:
            return u"it is not a whole XML document with the element VBRCommand";
        case CommandReadResult::TooMuchMarkup:
            return u"it nests too deep, or has too many elements or attributes";
    }
    return u"";
}

CommandReadResult ParseCommand(VBRCommand& record, const std::string& xml) {
    TiXmlDocument document;
    CommandReadResult result;
    const TiXmlElement* root = ParseRoot(document, xml, result);
    if (!root) {
        return result;
    }
    const bool exact = IsExactText(*root);
    ReadAttributes(record, *root);
    ReadTitle(record, *root, exact);
    // Written again, a blank title would be none, and the phrase would be lost.
    if (Trim(record.Text, kXmlBlankText).empty()) {
        return CommandReadResult::NoTitle;
    }
    ReadTextsBehindTitle(record, *root, xml, exact);
    return CommandReadResult::Ok;
}

CommandFields FieldsOf(const VBRCommand& record) {
    CommandFields fields;
    fields.Attributes = {
        {"Excluded", record.IsEnabled() ? std::nullopt : std::optional<std::string>("1")},
        {"UsageCount", Number(record.UsageCount)},
        {"DisabledIsNoHasSelection", Number(record.DisabledIsNoHasSelection)},
        {"UseTitleOnly", Number(record.UseTitleOnly)},
        {"SortID", Number(record.SortID)},
        {"FlagsMenu", Number(record.FlagsMenu)}};
    if (!record.IsGroup()) {
        fields.Attributes.emplace_back("DateUsage",
                                       record.DateUsage.Year == 0
                                           ? std::nullopt
                                           : std::optional(FormatDateUsage(record.DateUsage)));
        fields.Texts = {{"MenuName", record.Text},
                        {"DataType", std::u16string(DataTypeToText(record.DataType))},
                        {"Cmd", record.Cmd},
                        {"Hint", record.ToolTipText}};
    }
    return fields;
}

std::string CommandToXml(const CommandFields& fields) {
    TiXmlElement root(kRootName);
    for (const auto& [name, value] : fields.Attributes) {
        if (value) {
            root.SetAttribute(name, *value);
        }
    }
    if (NeedsExactText(fields)) {
        root.SetAttribute(kExactText, "1");
    }
    for (const auto& [name, text] : fields.Texts) {
        AppendXmlElement(root, name.c_str(), text);
    }
    return PrintXml(TiXmlDeclaration("1.0", "UTF-8", "yes"), root);
}

CommandReadResult EditCommand(std::string& xml, const CommandFields& fields) {
    TiXmlDocument document;
    CommandReadResult result;
    const TiXmlElement* root = ParseRoot(document, xml, result);
    const std::optional<XmlTag> tag = root ? FindXmlRoot(xml, kRootName) : std::nullopt;
    if (!tag) {
        return root ? CommandReadResult::NotXml : result;
    }
    const bool marked = IsExactText(*root);
    const bool exact = marked || NeedsExactText(fields);
    VBRCommand stored;
    ReadTitle(stored, *root, exact);
    ReadTextsBehindTitle(stored, *root, xml, exact);
    const CommandFields there = FieldsOf(stored);
    XmlEdit edit(xml, *tag);
    for (const auto& [name, value] : fields.Attributes) {
        value ? edit.SetAttribute(name, *value) : edit.RemoveAttribute(name);
    }
    if (exact && !marked) {
        edit.SetAttribute(kExactText, "1");
    }
    for (std::size_t i = 0; i < fields.Texts.size(); ++i) {
        if (fields.Texts[i] != there.Texts[i]) {
            edit.SetText(fields.Texts[i].first, fields.Texts[i].second);
        }
    }
    xml = edit.Xml();
    return result;
}

CommandReadResult EditUsage(std::string& xml, std::int64_t uses, const SystemTime& utc,
                            VBRCommand& record) {
    const CommandReadResult result = ParseCommand(record, xml);
    if (result != CommandReadResult::Ok) {
        return result;
    }
    const std::optional<XmlTag> tag = FindXmlRoot(xml, kRootName);
    if (!tag) {
        return CommandReadResult::NotXml;
    }
    record.UsageCount = static_cast<std::int32_t>(
        std::min<std::int64_t>(record.UsageCount + uses, std::numeric_limits<std::int32_t>::max()));
    record.SetDateUsage(utc);
    XmlEdit edit(std::move(xml), *tag);
    edit.SetAttribute("UsageCount", Number(record.UsageCount));
    edit.SetAttribute("DateUsage", FormatDateUsage(utc));
    xml = edit.Xml();
    return result;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "phrases/command_file.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/text.h"
#include "base/xml_guard.h"
#include "base/xml_printer.h"

namespace vbr {
namespace {

constexpr const char* kRootName = "VBRCommand";

// What the parser takes for white space, or skips like it.
constexpr std::u16string_view kBlanks = u" \t\r\n\v\f\uFEFF\uFFFE\uFFFF";

// Ok, NotXml, or TooMuchMarkup for what the parser must not be let at.
CommandReadResult ParseDocument(TiXmlDocument& document, const std::string& xml) {
    const std::string_view body = SkipXmlDeclarations(xml);
    if (!IsWithinXmlLimits(body)) {
        return CommandReadResult::TooMuchMarkup;
    }
    TiXmlBase::SetCondenseWhiteSpace(false);
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
// that a phrase made of a blank or a line break isn't lost when its usage is saved.
std::string BlankText(std::string_view xml, const std::string& name) {
    const std::string open = "<" + name + ">";
    const std::size_t start = xml.find(open);
    const std::size_t end = xml.find("</" + name, start);
    if (start == xml.npos || end == xml.npos) {
        return {};
    }
    const std::size_t from = start + open.size();
    const std::string kept = "<t>." + std::string(xml.substr(from, end - from)) + ".</t>";
    TiXmlDocument document;
    const CommandReadResult result = ParseDocument(document, kept);
    const TiXmlText* text = document.RootElement() ? TextOf(*document.RootElement()) : nullptr;
    if (result != CommandReadResult::Ok || !text || text->NextSibling()) {
        return {};
    }
    const std::string& value = text->ValueStr();
    return value.substr(1, value.size() - 2);
}

std::u16string DecodeText(std::string_view utf8) {
    std::u16string text = Utf8ToUtf16(utf8);
    ReplaceAll(text, u"&lt;", u"<");
    ReplaceAll(text, u"&gt;", u">");
    ReplaceAll(text, u"&quote;", u"\"");
    return text;
}

std::u16string ElementText(const TiXmlElement& root, const char* name, std::string_view xml) {
    const TiXmlElement* element = root.FirstChildElement(name);
    if (!element) {
        return {};
    }
    const TiXmlText* text = TextOf(*element);
    return DecodeText(text ? text->ValueStr() : BlankText(xml, name));
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

void SetNumber(TiXmlElement& element, const char* name, std::int64_t value) {
    element.SetAttribute(name, Utf16ToUtf8(ToDecimal(value)));
}

void WriteAttributes(TiXmlElement& root, const VBRCommand& record) {
    if (!record.IsEnabled()) {
        SetNumber(root, "Excluded", 1);
    }
    SetNumber(root, "UsageCount", record.UsageCount);
    SetNumber(root, "DisabledIsNoHasSelection", record.DisabledIsNoHasSelection);
    SetNumber(root, "UseTitleOnly", record.UseTitleOnly);
    SetNumber(root, "SortID", record.SortID);
    SetNumber(root, "FlagsMenu", record.FlagsMenu);
    if (!record.IsGroup() && record.DateUsage.Year != 0) {
        root.SetAttribute("DateUsage", FormatDateUsage(record.DateUsage));
    }
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
    if (!IsValidUtf8(xml)) {
        return CommandReadResult::NotUtf8;
    }
    // A large file of another kind isn't worth the parser's time.
    if (xml.find(std::string("<") + kRootName) == xml.npos) {
        return CommandReadResult::NotXml;
    }
    TiXmlDocument document;
    const CommandReadResult parsed = ParseDocument(document, xml);
    if (parsed != CommandReadResult::Ok) {
        return parsed;
    }
    const TiXmlElement* root = document.FirstChildElement(kRootName);
    if (!root) {
        return CommandReadResult::NotXml;
    }
    ReadAttributes(record, *root);
    const TiXmlElement* title = root->FirstChildElement("MenuName");
    if (!title || !TextOf(*title)) {
        return CommandReadResult::NoTitle;
    }
    record.Text = CutUnits(DecodeText(TextOf(*title)->ValueStr()), kMenuNameMax);
    // Written again, such a title would be none, and the phrase would be lost.
    if (Trim(record.Text, kBlanks).empty()) {
        return CommandReadResult::NoTitle;
    }
    record.DataType = DataTypeFromText(ElementText(*root, "DataType", xml));
    record.Cmd = ElementText(*root, "Cmd", xml);
    record.ToolTipText = CutUnits(ElementText(*root, "Hint", xml), kHintMax);
    return CommandReadResult::Ok;
}

std::string CommandToXml(const VBRCommand& record) {
    TiXmlElement root(kRootName);
    WriteAttributes(root, record);
    if (!record.IsGroup()) {
        AppendXmlElement(root, "MenuName", record.Text);
        AppendXmlElement(root, "DataType", DataTypeToText(record.DataType));
        AppendXmlElement(root, "Cmd", record.Cmd);
        AppendXmlElement(root, "Hint", record.ToolTipText);
    }
    return PrintXml(TiXmlDeclaration("1.0", "UTF-8", "yes"), root);
}

std::filesystem::path CommandFileOf(const VBRCommand& record) {
    return record.IsGroup() ? record.FilePath / kFolderSelfName : record.FilePath;
}

CommandReadResult CommandFiles::ReadCommandFile(VBRCommand& record,
                                                const std::filesystem::path& path) {
    const std::optional<std::string> bytes = files_.Read(path);
    if (!bytes || bytes->empty()) {
        return CommandReadResult::Unreadable;
    }
    return ParseCommand(record, *bytes);
}

bool CommandFiles::WriteCommandFile(const VBRCommand& record, const std::filesystem::path& path,
                                    const WriteFailure& onFailure) {
    const std::u16string error = WriteCommandText(path, CommandToXml(record));
    if (error.empty()) {
        return true;
    }
    if (onFailure) {
        onFailure(path, error, record);
    }
    return false;
}

std::u16string CommandFiles::WriteCommandText(const std::filesystem::path& path,
                                              std::string_view xml) {
    std::u16string error;
    if (xml.empty()) {
        error = u"ERROR: cannot create XML for command";
    } else if (const std::optional<SystemError> failure = files_.Replace(path, xml)) {
        error = Concat(u"ERROR: code ", failure->Code, u", ", failure->Text);
    }
    if (!error.empty()) {
        log_.Write(error);
    }
    return error;
}

}  // namespace vbr

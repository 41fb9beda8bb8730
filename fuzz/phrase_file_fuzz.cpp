// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <tinyxml.h>

#include "base/xml_edit.h"
#include "base/xml_guard.h"
#include "fuzzing.h"
#include "phrases/command_document.h"

namespace {

constexpr const char* kRoot = "VBRCommand";
constexpr const char* kFigures[] = {"UsageCount", "DateUsage"};
constexpr const char* kOtherAttributes[] = {
    "Excluded", "DisabledIsNoHasSelection", "UseTitleOnly", "SortID", "FlagsMenu", "ExactText"};
constexpr const char* kTexts[] = {"MenuName", "DataType", "Cmd", "Hint"};
constexpr vbr::SystemTime kUse = {
    .Year = 2026, .Month = 11, .Day = 22, .Hour = 1, .Minute = 2, .Second = 3};

vbr::VBRCommand Parsed(const std::string& xml) {
    vbr::VBRCommand record;
    vbr::Require(vbr::ParseCommand(record, xml) == vbr::CommandReadResult::Ok);
    return record;
}

void Parse(TiXmlDocument& document, const std::string& xml) {
    document.Parse(vbr::EscapeStrayAmpersands(vbr::SkipXmlDeclarations(xml)).c_str(), nullptr,
                   TIXML_ENCODING_UTF8);
    vbr::Require(!document.Error());
}

// The document without what a use changes, or a save with `texts` too, as the library sees it.
std::string Rest(const std::string& xml, bool texts) {
    TiXmlDocument document;
    Parse(document, xml);
    TiXmlElement* root = document.FirstChildElement(kRoot);
    std::for_each(std::begin(kFigures), std::end(kFigures),
                  [root](const char* name) { root->RemoveAttribute(name); });
    if (texts) {
        std::for_each(std::begin(kOtherAttributes), std::end(kOtherAttributes),
                      [root](const char* name) { root->RemoveAttribute(name); });
        for (const char* name : kTexts) {
            if (TiXmlElement* element = root->FirstChildElement(name)) {
                root->RemoveChild(element);
            }
        }
    }
    TiXmlPrinter printer;
    document.Accept(&printer);
    return printer.Str();
}

// The document with 0 for each figure that it had before, and without those that a use has added.
std::string WithoutFigures(const std::string& xml, const std::string& before) {
    TiXmlDocument document;
    Parse(document, before);
    std::string out = xml;
    for (const char* name : kFigures) {
        const bool had = document.FirstChildElement(kRoot)->Attribute(name) != nullptr;
        vbr::XmlEdit edit(out, *vbr::FindXmlRoot(out, kRoot));
        had ? edit.SetAttribute(name, "0") : void();
        out = edit.Xml();
        const std::string value = name == kFigures[0] ? "1" : "2026|11|22|1|2|3";
        const std::string added = std::string(" ") + name + "=\"" + value + "\"";
        const std::size_t at = had || &xml == &before
                                   ? out.npos
                                   : out.find(added, vbr::FindXmlRoot(out, kRoot)->Begin);
        out.erase(std::min(at, out.size()), added.size());
    }
    return out;
}

// A use gives the figures and keeps every other byte.
void CheckUse(const std::string& xml) {
    vbr::VBRCommand expected = Parsed(xml);
    expected.AddUsage();
    expected.SetDateUsage(kUse);
    std::string used = xml;
    vbr::VBRCommand now;
    vbr::Require(vbr::EditUsage(used, 1, kUse, now) == vbr::CommandReadResult::Ok);
    vbr::Require(FieldsOf(now) == FieldsOf(expected));
    vbr::Require(FieldsOf(Parsed(used)) == FieldsOf(expected));
    vbr::Require(Rest(used, false) == Rest(xml, false));
    vbr::Require(WithoutFigures(used, xml) == WithoutFigures(xml, xml));
}

// A save gives the record and keeps what the reader doesn't know.
void CheckSave(const std::string& xml, const vbr::VBRCommand& record) {
    std::string saved = xml;
    vbr::Require(vbr::EditCommand(saved, FieldsOf(record)) == vbr::CommandReadResult::Ok);
    vbr::Require(FieldsOf(Parsed(saved)) == FieldsOf(record));
    vbr::Require(Rest(saved, true) == Rest(xml, true));
    // Saved again, it changes no more.
    const std::string once = saved;
    vbr::Require(vbr::EditCommand(saved, FieldsOf(record)) == vbr::CommandReadResult::Ok);
    vbr::Require(saved == once);
}

}  // namespace

// Any bytes can be read, and a phrase that was read survives being saved and used.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string xml(vbr::InputText(data, size));
    vbr::VBRCommand record;
    if (vbr::ParseCommand(record, xml) != vbr::CommandReadResult::Ok) {
        return 0;
    }
    vbr::Require(FieldsOf(Parsed(CommandToXml(record))) == FieldsOf(record));
    CheckUse(xml);
    CheckSave(xml, record);
    record.SetEnabled(!record.Enabled);
    record.ToolTipText = record.Text;
    record.Cmd = size % 2 == 0 ? u"\r\n" : u"&lt; & <b>";
    record.Text = u"new &quote;";
    record.DataType = (record.DataType + 1) % 3;
    CheckSave(xml, record);
    return 0;
}

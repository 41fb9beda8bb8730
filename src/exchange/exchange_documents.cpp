// SPDX-License-Identifier: MIT
#include "exchange/exchange_documents.h"

#include <limits>
#include <memory>
#include <optional>

#include "base/text.h"
#include "base/xml_guard.h"
#include "base/xml_printer.h"

namespace vbr {
namespace {

constexpr const char* kQueryRoot = "WPQuery";
constexpr const char* kAnswerRoot = "WPAnswer";

// A decimal number; nothing when it isn't within the range of `Number`.
template <typename Number>
std::optional<Number> InRange(const char* digits) {
    const std::int64_t number = ParseDecimal(std::string_view(digits));
    if (number < std::numeric_limits<Number>::min() ||
        number > std::int64_t{std::numeric_limits<Number>::max()}) {
        return std::nullopt;
    }
    return static_cast<Number>(number);
}

std::int32_t Number(const TiXmlElement& element, const char* attribute, std::int32_t absent) {
    const char* value = element.Attribute(attribute);
    return value ? InRange<std::int32_t>(value).value_or(absent) : absent;
}

// A handle has 32 bits that matter. Some write the upper half of them as negative numbers.
WindowHandle Handle(const char* digits) {
    if (const auto handle = InRange<std::uint32_t>(digits)) {
        return *handle;
    }
    return static_cast<std::uint32_t>(InRange<std::int32_t>(digits).value_or(0));
}

WindowHandle HandleAttribute(const TiXmlElement& element, const char* attribute) {
    const char* value = element.Attribute(attribute);
    return value ? Handle(value) : 0;
}

// Null when there is no such element or it has no text.
const char* ElementText(const TiXmlElement& parent, const char* name) {
    const TiXmlElement* element = parent.FirstChildElement(name);
    return element ? element->GetText() : nullptr;
}

std::u16string WideText(const TiXmlElement& parent, const char* name) {
    const char* text = ElementText(parent, name);
    return text ? Utf8ToUtf16(text) : std::u16string();
}

// The words are named for the halves from which their reader takes them, not for those of the
// layout.
LayoutHandle ReadLayout(const TiXmlElement& root) {
    const char* high = ElementText(root, "HKLLoword");
    const char* low = ElementText(root, "HKLHoword");
    if (!high || !low) {
        return 0;
    }
    const auto word = [](const char* digits) {
        return static_cast<std::uint32_t>(ParseDecimal(std::string_view(digits))) & 0xFFFF;
    };
    return word(high) << 16 | word(low);
}

void AppendItems(TiXmlElement& parent, const WPMenuGroup& items, Log& log);

std::unique_ptr<TiXmlElement> MakeGroup(const WPMenuItem& item, Log& log) {
    auto element = std::make_unique<TiXmlElement>("Group");
    AppendXmlText(*element, CutUnits(item.Text, kAnswerTextMax));
    element->SetAttribute("Default", item.Flags & 1);
    if (item.Children->empty()) {
        log.Write(u"Oops! Group is empty");
    }
    AppendItems(*element, *item.Children, log);
    return element;
}

std::unique_ptr<TiXmlElement> MakeCommand(const WPMenuItem& item) {
    auto element = std::make_unique<TiXmlElement>("Command");
    const bool isSeparator = item.CMDID == 0;
    AppendXmlText(*element, isSeparator ? u"" : CutUnits(item.Text, kAnswerTextMax));
    element->SetAttribute("Flags", item.Flags);
    element->SetAttribute("CMDID", static_cast<std::int32_t>(item.CMDID));
    element->SetAttribute("DataType", item.DataType);
    element->SetAttribute("LCID", item.LCID);
    if (!item.ToolTipText.empty()) {
        AppendXmlElement(*element, "ToolTipText", CutUnits(item.ToolTipText, kAnswerTipMax));
    }
    return element;
}

void AppendItems(TiXmlElement& parent, const WPMenuGroup& items, Log& log) {
    for (const WPMenuItem& item : items) {
        parent.LinkEndChild((item.Children ? MakeGroup(item, log) : MakeCommand(item)).release());
    }
}

}  // namespace

bool ParseQuery(std::string_view document, WPQuery& query) {
    std::string body(SkipXmlDeclarations(document));
    // The library believes the length that a character's first byte tells, beyond the text's end.
    if (!IsValidUtf8(body)) {
        body = Utf16ToUtf8(Utf8ToUtf16(body));
    }
    if (!IsWithinXmlLimits(body)) {
        return false;
    }
    KeepXmlWhiteSpace();
    TiXmlDocument parsed;
    // A document that is cut off still tells what stands before.
    parsed.Parse(body.c_str(), nullptr, TIXML_ENCODING_UTF8);
    const TiXmlElement* root = parsed.FirstChildElement(kQueryRoot);
    if (!root) {
        return false;
    }
    query.GuiThreadInfo.Active = HandleAttribute(*root, "HWND_Active");
    query.GuiThreadInfo.Capture = HandleAttribute(*root, "HWND_Capture");
    query.GuiThreadInfo.Caret = HandleAttribute(*root, "HWND_Caret");
    query.GuiThreadInfo.Focus = HandleAttribute(*root, "HWND_Focus");
    query.GuiThreadInfo.MenuOwner = HandleAttribute(*root, "HWND_MenuOwner");
    query.PointX = Number(*root, "POINT_X", -1);
    query.PointY = Number(*root, "POINT_Y", -1);
    query.AppPath = WideText(*root, "AppPath");
    query.WindowClassName = WideText(*root, "WindowClassName");
    if (const char* target = ElementText(*root, "HWND")) {
        query.TargetWindow = Handle(target);
    }
    query.Hkl = ReadLayout(*root);
    if (const TiXmlElement* selection = root->FirstChildElement("SelText")) {
        query.SelText = WideText(*root, "SelText");
        query.StateSelText = Number(*selection, "StateSelText", -1);
    }
    return true;
}

std::string AnswerDocument(const WPAnswer& answer, Log& log) {
    TiXmlElement root(kAnswerRoot);
    root.SetAttribute("Sound", answer.Sound);
    root.SetAttribute("ShowToolTips", answer.ShowToolTips);
    root.SetAttribute("ForegroundTopMostWnd", answer.ForegroundTopMostWnd);
    auto group = std::make_unique<TiXmlElement>("Group");
    AppendItems(*group, answer.Items, log);
    if (answer.MenuPerColumn != 0) {
        AppendXmlElement(*group, "MenuPerColumn", ToDecimal(answer.MenuPerColumn));
    }
    root.LinkEndChild(group.release());
    return PrintXml(TiXmlDeclaration("1.0", "", ""), root);
}

}  // namespace vbr

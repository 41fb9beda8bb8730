// SPDX-License-Identifier: MIT
#include "settings/shared_settings.h"

#include "base/text.h"
#include "base/xml_guard.h"
#include "base/xml_printer.h"
#include "platform/object_names.h"

namespace vbr {

std::string SharedSettingsText(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                               std::u16string_view selectedText) {
    TiXmlElement root("VellumbridgeSettings");
    root.SetAttribute("HotKey_Key", hotkeyVk);
    root.SetAttribute("HotKey_Mod", hotkeyMods);
    root.SetAttribute("Double", bDouble ? 1 : 0);
    if (!selectedText.empty()) {
        AppendXmlElement(root, "SelText", selectedText);
    }
    return PrintXml(TiXmlDeclaration("1.0", "", ""), root);
}

bool SharedSettings::WriteSharedSettings(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods,
                                         bool bDouble, std::u16string_view selectedText) {
    if (selectedText.size() >= kAreaSettingsSize) {
        return false;
    }
    const std::string text = SharedSettingsText(hotkeyVk, hotkeyMods, bDouble, selectedText);
    if (text.empty()) {
        return false;
    }
    const std::lock_guard guard(lock_);
    if (!area_) {
        area_ = memory_.Create(kAreaSettings, kAreaSettingsSize);
    }
    return area_ && area_->Write(text);
}

void SharedSettings::HandOver(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                              std::u16string_view selectedText) {
    {
        const std::lock_guard guard(lock_);
        longText_.reset();
    }
    if (WriteSharedSettings(hotkeyVk, hotkeyMods, bDouble, selectedText) || selectedText.empty()) {
        return;
    }
    // What was handed over before is not this one's.
    WriteSharedSettings(hotkeyVk, hotkeyMods, bDouble, u"");
    const std::string text = Utf16ToUtf8(selectedText);
    const std::lock_guard guard(lock_);
    longText_ = memory_.Create(kAreaSelection, static_cast<std::uint32_t>(text.size() + 1));
    if (longText_) {
        longText_->Write(text);
    }
}

std::optional<SharedValues> ReadSharedSettings(SharedMemory& memory) {
    const auto area = memory.OpenBlock(kAreaSettings);
    const std::string xml = area ? area->Read().Bytes : std::string();
    TiXmlDocument document;
    if (IsWithinXmlLimits(SkipXmlDeclarations(xml))) {
        KeepXmlWhiteSpace();
        document.Parse(xml.c_str(), nullptr, TIXML_ENCODING_UTF8);
    }
    const TiXmlElement* root = document.RootElement();
    if (document.Error() || !root) {
        return std::nullopt;
    }
    const auto number = [root](const char* name) {
        int value = 0;
        root->QueryIntAttribute(name, &value);
        return static_cast<std::uint16_t>(value);
    };
    SharedValues values{.HotkeyVk = number("HotKey_Key"),
                        .HotkeyMods = number("HotKey_Mod"),
                        .Doubled = number("Double") != 0,
                        .SelectedText = {}};
    const TiXmlElement* selected = root->FirstChildElement("SelText");
    if (const char* text = selected ? selected->GetText() : nullptr) {
        values.SelectedText = Utf8ToUtf16(text);
    } else if (const auto longText = memory.OpenBlock(kAreaSelection)) {
        values.SelectedText = Utf8ToUtf16(longText->Read().Bytes);
    }
    return values;
}

}  // namespace vbr

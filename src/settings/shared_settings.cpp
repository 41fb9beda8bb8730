// SPDX-License-Identifier: MIT
#include "settings/shared_settings.h"

#include <tinyxml.h>

#include "base/text.h"
#include "base/xml_references.h"
#include "platform/object_names.h"

namespace vbr {

std::string SharedSettingsText(std::uint16_t hotkeyVk, std::uint16_t hotkeyMods, bool bDouble,
                               std::u16string_view selectedText) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "", ""));
    auto root = std::make_unique<TiXmlElement>("VellumbridgeSettings");
    root->SetAttribute("HotKey_Key", hotkeyVk);
    root->SetAttribute("HotKey_Mod", hotkeyMods);
    root->SetAttribute("Double", bDouble ? 1 : 0);
    if (!selectedText.empty()) {
        auto element = std::make_unique<TiXmlElement>("SelText");
        element->LinkEndChild(new TiXmlText(MarkReferences(Utf16ToUtf8(selectedText))));
        root->LinkEndChild(element.release());
    }
    document.LinkEndChild(root.release());
    TiXmlPrinter printer;
    printer.SetIndent("    ");
    printer.SetLineBreak("\r\n");
    return document.Accept(&printer) ? UnmarkReferences(printer.Str()) : std::string();
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

}  // namespace vbr

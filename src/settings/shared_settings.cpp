// SPDX-License-Identifier: MIT
#include "settings/shared_settings.h"

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

}  // namespace vbr

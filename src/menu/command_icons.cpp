// SPDX-License-Identifier: MIT
#include "menu/command_icons.h"

#include "resources/resource_ids.h"

namespace vbr {

int IconOfCommand(std::uint32_t id) {
    switch (id) {
        case kCmdSupport:
        case kCmdOpenAsUrl:
        case kCmdOpenSourceUrl:
            return kIconUrl;
        case kCmdMenuSearchGoogle:
            return kIconGoogle;
        case kCmdMenuSearchYandex:
            return kIconYandex;
        case kCmdMenuSearchMsdn:
            return kIconMsdn;
        case kCmdMenuSearchWikipedia:
            return kIconWikipedia;
        default:
            return kIconProgram;
    }
}

bool IsEditorCommand(std::uint32_t id) {
    return id == kCmdEditPhrases || id == kCmdAddSelectionAsPhrase;
}

}  // namespace vbr

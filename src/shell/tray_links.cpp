// SPDX-License-Identifier: MIT
#include "shell/tray_links.h"

#include <algorithm>
#include <iterator>

#include "resources/resource_ids.h"
#include "web/vbr_url.h"

namespace vbr {
namespace {

struct Link {
    int Command;
    std::u16string (*Address)();
};

constexpr Link kLinks[] = {
    {kCmdHowToLocalize, CVBRUrl::GetLocalizeUrl},
    {kCmdVisitWebSite, CVBRUrl::GetHomeUrl},
    {kCmdVisitForum, CVBRUrl::GetForumUrl},
    {kCmdSupport, CVBRUrl::GetSupportUrl},
    {kCmdRssFeed, CVBRUrl::GetNewsUrl},
    {kCmdVideo, CVBRUrl::GetVideoUrl},
    {kCmdVisitQuickStart, CVBRUrl::GetQuickStartUrl},
    {kCmdVisitFaq, CVBRUrl::GetFaqUrl},
    {kCmdFacebookGroup, CVBRUrl::GetFacebookUrl},
    {kCmdVkontakteGroup, CVBRUrl::GetVkUrl},
};

}  // namespace

std::u16string LinkOfCommand(int commandId) {
    const auto link = std::find_if(std::begin(kLinks), std::end(kLinks),
                                   [commandId](const Link& l) { return l.Command == commandId; });
    return link == std::end(kLinks) ? std::u16string() : link->Address();
}

}  // namespace vbr

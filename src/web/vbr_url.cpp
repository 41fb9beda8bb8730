// SPDX-License-Identifier: MIT
#include "web/vbr_url.h"

#include <atomic>

#include "base/text.h"
#include "base/version.h"
#include "web/web_addresses.h"

namespace vbr {
namespace {

std::atomic<bool> Use_RU_Urls = false;

std::u16string OnServer(std::u16string_view path) {
    return Concat(kWebServer, path);
}

std::u16string OnServer(std::u16string_view english, std::u16string_view russian) {
    return OnServer(Use_RU_Urls ? russian : english);
}

std::u16string WithoutBlanks(std::u16string text) {
    ReplaceAll(text, u" ", u"_");
    return text;
}

}  // namespace

void CVBRUrl::_Set_Use_RU_Urls(bool flag, Log& log) {
    log.Write(Concat(u"CVBRUrl::_Set_Use_RU_Urls =", int{flag}));
    Use_RU_Urls = flag;
}

std::u16string CVBRUrl::GetHomeUrl() {
    return OnServer(u"/home_vbr.php");
}

std::u16string CVBRUrl::GetSupportUrl() {
    return OnServer(u"/home_support.php");
}

std::u16string CVBRUrl::GetDownloadUrl() {
    return OnServer(u"/kelp_reef_history_ex.php?fn=Vellumbridge.zip");
}

std::u16string CVBRUrl::GetForumUrl() {
    return OnServer(u"/home_forum.php");
}

std::u16string CVBRUrl::GetNewsUrl() {
    return OnServer(u"/news_en.xml", u"/Rus/news_ru.xml");
}

std::u16string CVBRUrl::GetVideoUrl() {
    return OnServer(u"/vbr_video.shtml");
}

std::u16string CVBRUrl::GetBugReportUrl() {
    return OnServer(u"/vellumbridge_faq.shtml#bug_report", u"/Rus/vellumbridge_faq.htm#report");
}

std::u16string CVBRUrl::GetQuickStartUrl() {
    const std::u16string version(Trim(VersionText(), u" "));
    return WithoutBlanks(OnServer(Concat(u"/home_vbr_qs.php?ver=", version, u"&from_app=",
                                         std::u16string_view(kProductName))));
}

std::u16string CVBRUrl::GetFaqUrl() {
    return OnServer(u"/home_vbr_faq.php");
}

std::u16string CVBRUrl::GetPortableUrl() {
    return OnServer(u"/vellumbridge_faq.shtml#portable", u"/Rus/vellumbridge_faq.htm#portable");
}

std::u16string CVBRUrl::GetLocalizeUrl() {
    return OnServer(u"/vellumbridge_faq.shtml#howto_loc", u"/vellumbridge_faq.shtml#howto_loc_ru");
}

std::u16string CVBRUrl::GetFacebookUrl() {
    return std::u16string(kFacebookPage);
}

std::u16string CVBRUrl::GetVkUrl() {
    return std::u16string(kVkPage);
}

std::optional<SystemError> OpenUrl(ShellOpener& shell, WindowHandle window,
                                   std::u16string_view url) {
    return shell.Open(window, url, ShowState::Maximized);
}

void SendMail(ShellOpener& shell, WindowHandle window) {
    const std::u16string subject = WithoutBlanks(Concat(u"subject=", kProductName));
    OpenUrl(shell, window, Concat(u"mailto:", kMailAddress, u"?", subject));
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/log.h"
#include "platform/shell_opener.h"
#include "platform/window_handle.h"

namespace vbr {

// The addresses that the program opens or fetches. Some have a Russian form; one flag of the
// process chooses. Callable from any thread.
class CVBRUrl {
  public:
    CVBRUrl() = delete;

    static void _Set_Use_RU_Urls(bool flag, Log& log);

    static std::u16string GetHomeUrl();
    static std::u16string GetSupportUrl();
    static std::u16string GetDownloadUrl();
    static std::u16string GetForumUrl();
    static std::u16string GetNewsUrl();
    static std::u16string GetVideoUrl();
    static std::u16string GetBugReportUrl();
    // Names the program and its version.
    static std::u16string GetQuickStartUrl();
    static std::u16string GetFaqUrl();
    static std::u16string GetPortableUrl();
    static std::u16string GetLocalizeUrl();
    static std::u16string GetFacebookUrl();
    static std::u16string GetVkUrl();
};

// Opens the address in the user's browser, maximised.
std::optional<SystemError> OpenUrl(ShellOpener& shell, WindowHandle window,
                                   std::u16string_view url);

// Opens a new mail to the makers.
void SendMail(ShellOpener& shell, WindowHandle window);

}  // namespace vbr

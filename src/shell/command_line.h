// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/strings.h"

namespace vbr {

// The keys of the command line. 5 is not in use.
enum class CmdKey {
    Exit = 0,
    AutoLoad = 1,
    Ua = 2,
    NoInstall = 3,
    Help = 4,
    Edit = 6,
    AsAdmin = 7,
    ShowMenu = 8,
    Cfu = 9,
};

// The key's spelling without its "/"; empty for a number that is no key.
std::u16string_view KeyText(CmdKey key);
std::u16string_view KeyDescription(CmdKey key);

// The arguments with which the program starts itself elevated, and with Windows.
std::u16string ElevationArgument();
std::u16string AutoLoadArgument();

// The list of keys that "?" shows.
std::u16string CommandLineHelp(const Strings& strings);

// "/" and key, with the key's description, of each key.
std::map<std::u16string, std::u16string> KeyReport();

// The parsed command line: a set of switches. Each is "/key" or "-key" in any letter case,
// followed by white space or the end; only the first occurrence of a spelling counts.
class CVBRCmdLine {
  public:
    // `text` is the raw command line without the program path.
    explicit CVBRCmdLine(std::u16string_view text);

    const std::u16string& Text() const { return text_; }
    bool HasKey(std::u16string_view key) const;

    bool Exit() const { return exit_; }
    bool Ua() const { return ua_; }
    bool AutoLoad() const { return autoLoad_; }
    bool NoInstall() const { return noInstall_; }
    bool Help() const { return help_; }
    bool Edit() const { return edit_; }
    bool AsAdmin() const { return asAdmin_; }
    bool ShowMenu() const { return showMenu_; }
    bool Cfu() const { return cfu_; }

  private:
    bool Has(CmdKey key) const { return HasKey(KeyText(key)); }

    std::u16string text_;
    bool exit_ = false;
    bool ua_ = false;
    bool autoLoad_ = false;
    bool noInstall_ = false;
    bool help_ = false;
    bool edit_ = false;
    bool asAdmin_ = false;
    bool showMenu_ = false;
    bool cfu_ = false;
};

}  // namespace vbr

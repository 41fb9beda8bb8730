// SPDX-License-Identifier: MIT
#include "shell/command_line.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

struct KeyRow {
    CmdKey Key;
    std::u16string_view Text;
    std::u16string_view Description;
};

constexpr KeyRow kKeys[] = {
    {CmdKey::Exit, u"exit", u"complete all previous running instances of Vellumbridge"},
    {CmdKey::AutoLoad, u"autoload", u"detect when Vellumbridge start automatically with Windows"},
    {CmdKey::Ua, u"ua", u"no set \"Start with Windows\" on first running"},
    {CmdKey::NoInstall, u"noinstall", u"no install services on start of Vellumbridge"},
    {CmdKey::Help, u"?", u"print arguments of command line description and exit"},
    {CmdKey::Edit, u"edit", u"Start the PhraseEditor or change settings"},
    {CmdKey::AsAdmin, u"asadmin", u"Start second instance of Vellumbridge as administator"},
    {CmdKey::ShowMenu, u"showmenu", u"Show menu on Vellumbridge tray icon"},
    {CmdKey::Cfu, u"cfu", u"check for updates"},
};

constexpr std::size_t kHelpColumn = 12;

const KeyRow* FindKey(CmdKey key) {
    const auto row = std::find_if(std::begin(kKeys), std::end(kKeys),
                                  [key](const KeyRow& r) { return r.Key == key; });
    return row == std::end(kKeys) ? nullptr : row;
}

bool IsWhiteSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == 0x00A0 || c == 0x3000;
}

}  // namespace

std::u16string_view KeyText(CmdKey key) {
    const KeyRow* row = FindKey(key);
    return row ? row->Text : std::u16string_view();
}

std::u16string_view KeyDescription(CmdKey key) {
    const KeyRow* row = FindKey(key);
    return row ? row->Description : std::u16string_view();
}

std::u16string ElevationArgument() {
    return Concat(u"/", KeyText(CmdKey::AsAdmin));
}

std::u16string AutoLoadArgument() {
    return Concat(u"/", KeyText(CmdKey::AutoLoad));
}

std::u16string CommandLineHelp(const Strings& strings) {
    std::u16string help = strings.LoadString(kStrCommandLineKeys) + u":\n\n";
    for (const KeyRow& row : kKeys) {
        std::u16string key = Concat(u"/", row.Text);
        key.resize(std::max(key.size(), kHelpColumn), u' ');
        help += Concat(key, u" - ", row.Description, u"\n");
    }
    return help + u"\n\n" + strings.LoadString(kStrPressCtrlC);
}

std::map<std::u16string, std::u16string> KeyReport() {
    std::map<std::u16string, std::u16string> report;
    for (const KeyRow& row : kKeys) {
        report[Concat(u"/", row.Text)] = row.Description;
    }
    return report;
}

CVBRCmdLine::CVBRCmdLine(std::u16string_view text)
    : text_(text),
      exit_(Has(CmdKey::Exit)),
      ua_(Has(CmdKey::Ua)),
      autoLoad_(Has(CmdKey::AutoLoad)),
      noInstall_(Has(CmdKey::NoInstall)),
      help_(Has(CmdKey::Help)),
      edit_(Has(CmdKey::Edit)),
      asAdmin_(Has(CmdKey::AsAdmin)),
      showMenu_(Has(CmdKey::ShowMenu)),
      cfu_(Has(CmdKey::Cfu)) {
    exit_ = exit_ || ua_;
}

bool CVBRCmdLine::HasKey(std::u16string_view key) const {
    for (const std::u16string_view mark : {u"/", u"-"}) {
        const std::u16string spelling = Concat(mark, key);
        std::size_t at = text_.find(spelling);
        if (at == text_.npos) {
            at = FindNoCase(text_, spelling);
        }
        if (at == text_.npos) {
            continue;
        }
        const std::size_t end = at + spelling.size();
        if (end == text_.size() || IsWhiteSpace(text_[end])) {
            return true;
        }
    }
    return false;
}

}  // namespace vbr

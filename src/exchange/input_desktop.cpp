// SPDX-License-Identifier: MIT
#include "exchange/input_desktop.h"

#include "base/text.h"

namespace vbr {
namespace {

// A desktop can have several handles, but one name.
bool HaveSameName(const Desktop& current, const Desktop& input, Log& log) {
    const auto nameOf = [&log](const Desktop& desktop, std::u16string_view label) {
        DesktopName name = desktop.Name();
        if (!name.Read) {
            log.Write(Concat(u"b1=", int{name.Read}, u", ", label, u"=", name.Text, u", dwLenNeed=",
                             name.LengthNeeded, u", LastError= ", name.Error.Code, u", ",
                             name.Error.Text));
        }
        return name;
    };
    const DesktopName first = nameOf(current, u"szName1");
    const DesktopName second = nameOf(input, u"szName2");
    log.Write(Concat(u"hDesk1=[", first.Text, u",", int{first.Read}, u"] hDesk2=[", second.Text,
                     u",", int{second.Read}, u"]"));
    return first.Read && second.Read && EqualsNoCase(first.Text, second.Text);
}

}  // namespace

bool IsInputDesktopActive(Desktops& desktops, Log& log) {
    const std::unique_ptr<Desktop> current = desktops.OpenOfThread();
    if (!current) {
        log.Write(u"Current Desktop is NULL");
        return false;
    }
    const std::unique_ptr<Desktop> input = desktops.OpenInput();
    if (!input) {
        log.Write(u"Input Desktop is NULL");
        return false;
    }
    const bool active = current->Handle() == input->Handle() || HaveSameName(*current, *input, log);
    log.Write(active ? u"Current Desktop is active" : u"Current Desktop is IS NOT active");
    return active;
}

bool MayServeHotkey(Desktops& desktops, Log& log) {
    const bool active = IsInputDesktopActive(desktops, log);
    log.Write(active ? u"Input desktop is active" : u"SKIP HOTKEY. Input desktop is INACTIVE");
    return active;
}

}  // namespace vbr

// SPDX-License-Identifier: MIT
#include "exchange/target_kinds.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kEditClasses[] = {u"Edit", u"TEdit", u"TMemo"};
// Frameworks put their own name before or behind.
constexpr std::u16string_view kEditParts[] = {u"RichEdit", u".EDIT."};

constexpr std::u16string_view kTerminalClasses[] = {
    u"ConsoleWindowClass",  // every console program
    u"CASCADIA_HOSTING_WINDOW_CLASS",
    u"PseudoConsoleWindow",
    u"mintty",
    u"PuTTY",
    u"KiTTY",
    u"VirtualConsoleClass",
    u"VirtualConsoleClassMain",
    u"Console_2_Main",
    u"VTWin32",
    u"org.wezfurlong.wezterm",
    u"VanDyke Software - SecureCRT",
};

bool IsOneOf(std::u16string_view name, std::u16string_view list) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(u';'), list.size());
        const std::u16string_view one = Trim(list.substr(0, end), u" \t");
        if (!one.empty() && EqualsNoCase(name, one)) {
            return true;
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

}  // namespace

bool IsEditClass(std::u16string_view windowClass) {
    return std::ranges::any_of(kEditClasses,
                               [&](auto name) { return EqualsNoCase(windowClass, name); }) ||
           std::ranges::any_of(kEditParts, [&](auto part) {
               return FindNoCase(windowClass, part, 0) != windowClass.npos;
           });
}

bool IsTerminalClass(std::u16string_view windowClass, std::u16string_view others) {
    return std::ranges::any_of(kTerminalClasses,
                               [&](auto name) { return EqualsNoCase(windowClass, name); }) ||
           IsOneOf(windowClass, others);
}

}  // namespace vbr

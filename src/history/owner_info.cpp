// SPDX-License-Identifier: MIT
#include "history/owner_info.h"

#include <algorithm>
#include <vector>

namespace vbr {
namespace {

constexpr std::size_t kMaxTitle = 779;
constexpr std::size_t kMaxProgram = 260;
// No window nests that deep; one whose parents go in a circle would never end.
constexpr std::size_t kMaxChain = 64;

// The window's parents and itself, the topmost first.
std::vector<WindowHandle> ChainFromTop(WindowHandle window, const ProgramWindows& windows) {
    std::vector<WindowHandle> chain;
    while (window != 0 && chain.size() < kMaxChain) {
        chain.push_back(window);
        window = windows.ParentOf(window);
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

// What the first window of the chain gives that gives anything.
template <typename Ask>
auto FirstOf(const std::vector<WindowHandle>& chain, const Ask& ask) {
    decltype(ask(WindowHandle{})) found{};
    for (const WindowHandle window : chain) {
        found = ask(window);
        if (found != decltype(found){}) {
            break;
        }
    }
    return found;
}

IconHandle IconOfOwner(const std::vector<WindowHandle>& chain, const std::u16string& program,
                       const ProgramWindows& windows, Log& log) {
    IconHandle icon = FirstOf(chain, [&](WindowHandle window) { return windows.IconOf(window); });
    if (icon) {
        log.Write(u"Get icon NO top icon, but get from parents");
        return icon;
    }
    log.LogError(u"Also cannot get icon from parents");
    icon = program.empty() ? nullptr : windows.IconOfFile(program);
    if (!icon) {
        log.LogError(u"Cannot get icon for clipboard owner");
    }
    return icon;
}

}  // namespace

void ReadOwnerInfo(CCHItem& item, const ProgramWindows& windows, Log& log) {
    if (item.ownerWindow == 0 || !item.wndName.empty()) {
        return;
    }
    const std::vector<WindowHandle> chain = ChainFromTop(item.ownerWindow, windows);
    item.wndName = CutUnits(
        FirstOf(chain, [&](WindowHandle window) { return windows.TitleOf(window); }), kMaxTitle);
    item.exeName =
        CutUnits(FirstOf(chain, [&](WindowHandle window) { return windows.ProgramOf(window); }),
                 kMaxProgram);
    item.icon = IconOfOwner(chain, item.exeName, windows, log);
    item.iconTried = true;
}

IconHandle GetItemIcon(const CCHItem& item, const ProgramWindows& windows) {
    if (!item.icon && !item.iconTried) {
        item.iconTried = true;
        item.icon = item.exeName.empty() ? nullptr : windows.IconOfFile(item.exeName);
    }
    return item.icon;
}

}  // namespace vbr
